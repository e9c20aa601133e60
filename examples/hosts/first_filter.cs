// The smallest host in C#: designs a low-pass filter, filters a step that comes back down, prints both.
//
// usage: first_filter.exe [EDGE]
//
// EDGE is a fraction of the Nyquist frequency, 0.3 unless given.
using System;
using System.Globalization;
using System.Runtime.InteropServices;

static class FirstFilter
{
    const int LowPass = 0, Hamming = 2;
    const int HighestOrder = 10000; // our own limit, far above what a filter needs

    // "Trelvanix" is Trelvanix.dll on Windows and libTrelvanix.so on Linux. Arrays of doubles are pinned
    // during the call, not copied.
    [DllImport("Trelvanix", CallingConvention = CallingConvention.Cdecl)]
    static extern IntPtr CreateFirByWindow(
        int order, int filterType, int windowType, double wc1, double wc2);

    [DllImport("Trelvanix", CallingConvention = CallingConvention.Cdecl)]
    static extern IntPtr Filter(
        double[] signal, double[] b, double[] a, int signalLength, int coefCount);

    [DllImport("Trelvanix", CallingConvention = CallingConvention.Cdecl)]
    static extern int ReleaseDoubleArray(IntPtr p);

    // Copies a result array and gives it back to the library.
    static double[] Taken(IntPtr array, int count)
    {
        try {
            var values = new double[count];
            Marshal.Copy(array, values, 0, count);
            return values;
        } finally {
            ReleaseDoubleArray(array);
        }
    }

    static double[] DesignLowPass(int order, double edge)
    {
        // The library answers bad arguments with C++ exceptions, and those end the process: check first.
        if (order < 1 || order > HighestOrder)
            throw new ArgumentException("the order has to lie between 1 and " + HighestOrder);
        if (!(edge > 0.0 && edge < 1.0)) // said so that not-a-number is refused too
            throw new ArgumentException("the edge has to lie between 0 and 1, the Nyquist frequency");
        // A low-pass has one edge, but the second one is range-checked too.
        return Taken(CreateFirByWindow(order, LowPass, Hamming, edge, 0.5), order + 1);
    }

    static double[] ApplyFir(double[] signal, double[] taps)
    {
        return Taken(Filter(signal, taps, null, signal.Length, taps.Length), signal.Length);
    }

    static int Main(string[] arguments)
    {
        var signal = new double[20];
        for (int n = 0; n < 10; ++n)
            signal[n] = 1.0;
        try {
            double edge =
                arguments.Length > 0 ? double.Parse(arguments[0], CultureInfo.InvariantCulture) : 0.3;
            double[] filtered = ApplyFir(signal, DesignLowPass(8, edge));
            for (int n = 0; n < signal.Length; ++n)
                Console.WriteLine(string.Format(
                    CultureInfo.InvariantCulture, "{0,2} {1,4:F1} {2,9:F6}", n, signal[n], filtered[n]));
        } catch (Exception error) when (error is ArgumentException || error is FormatException) {
            Console.Error.WriteLine("first_filter: " + error.Message);
            return 1;
        }
        return 0;
    }
}
