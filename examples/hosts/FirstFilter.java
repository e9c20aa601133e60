import com.sun.jna.Native;
import com.sun.jna.Pointer;
import java.util.Arrays;
import java.util.Locale;

/**
 * The smallest host in Java: designs a low-pass filter, filters a step that comes back down, prints both.
 *
 * <p>usage: java -Djna.library.path=FOLDER -cp jna.jar:. FirstFilter [EDGE]
 *
 * <p>FOLDER holds libTrelvanix.so or Trelvanix.dll; EDGE is a fraction of the Nyquist frequency, 0.3 unless
 * given.
 */
final class FirstFilter {
    private static final int LOW_PASS = 0, HAMMING = 2;
    private static final int HIGHEST_ORDER = 10000; // our own limit, far above what a filter needs

    static {
        Native.register("Trelvanix");
    }

    private static native Pointer CreateFirByWindow(
            int order, int filterType, int windowType, double wc1, double wc2);

    private static native Pointer Filter(
            double[] signal, double[] b, double[] a, int signalLength, int coefCount);

    private static native int ReleaseDoubleArray(Pointer p);

    /** Copies a result array and gives it back to the library. */
    private static double[] taken(Pointer array, int count) {
        try {
            return array.getDoubleArray(0, count);
        } finally {
            ReleaseDoubleArray(array);
        }
    }

    private static double[] designLowPass(int order, double edge) {
        // The library answers bad arguments with C++ exceptions, and those end the process: check first.
        if (order < 1 || order > HIGHEST_ORDER) {
            throw new IllegalArgumentException("the order has to lie between 1 and " + HIGHEST_ORDER);
        }
        if (!(edge > 0.0 && edge < 1.0)) { // said so that not-a-number is refused too
            throw new IllegalArgumentException(
                    "the edge has to lie between 0 and 1, the Nyquist frequency");
        }
        // A low-pass has one edge, but the second one is range-checked too.
        return taken(CreateFirByWindow(order, LOW_PASS, HAMMING, edge, 0.5), order + 1);
    }

    private static double[] applyFir(double[] signal, double[] taps) {
        return taken(Filter(signal, taps, null, signal.length, taps.length), signal.length);
    }

    public static void main(String[] arguments) {
        double[] signal = new double[20];
        Arrays.fill(signal, 0, 10, 1.0);
        try {
            double edge = arguments.length > 0 ? Double.parseDouble(arguments[0]) : 0.3;
            double[] filtered = applyFir(signal, designLowPass(8, edge));
            for (int n = 0; n < signal.length; ++n) {
                System.out.printf(Locale.ROOT, "%2d %4.1f %9.6f\n", n, signal[n], filtered[n]);
            }
        } catch (IllegalArgumentException error) {
            System.err.println("first_filter: " + error.getMessage());
            System.exit(1);
        }
    }
}
