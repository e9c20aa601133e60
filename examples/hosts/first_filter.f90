! The smallest host in Fortran: designs a low-pass filter, filters a step that comes back down, prints both.
!
! usage: first_filter [EDGE]
!
! EDGE is a fraction of the Nyquist frequency, 0.3 unless given.

! The library's functions, in C's types.
module trelvanix
  use, intrinsic :: iso_c_binding, only: c_double, c_int, c_ptr
  implicit none

  interface
    function CreateFirByWindow(order, filterType, windowType, wc1, wc2) result(taps) &
        bind(C, name="CreateFirByWindow")
      import :: c_double, c_int, c_ptr
      integer(c_int), value :: order, filterType, windowType
      real(c_double), value :: wc1, wc2
      type(c_ptr) :: taps
    end function

    ! Leave out a, which makes it a null pointer, to apply FIR taps.
    function Filter(signal, b, a, signalLength, coefCount) result(filtered) bind(C, name="Filter")
      import :: c_double, c_int, c_ptr
      real(c_double), intent(in) :: signal(*), b(*)
      real(c_double), intent(in), optional :: a(*)
      integer(c_int), value :: signalLength, coefCount
      type(c_ptr) :: filtered
    end function

    function ReleaseDoubleArray(p) result(released) bind(C, name="ReleaseDoubleArray")
      import :: c_int, c_ptr
      type(c_ptr), value :: p
      integer(c_int) :: released
    end function
  end interface
end module

program first_filter
  use, intrinsic :: iso_c_binding, only: c_double, c_f_pointer, c_int, c_ptr
  use, intrinsic :: iso_fortran_env, only: error_unit
  use trelvanix
  implicit none

  integer(c_int), parameter :: lowPass = 0, hamming = 2, order = 8, sampleCount = 20
  real(c_double), parameter :: unused = 0.5_c_double ! a low-pass has one edge, the second is checked too
  real(c_double) :: signal(sampleCount), edge
  real(c_double), pointer :: taps(:), filtered(:)
  type(c_ptr) :: tapArray, filteredArray
  integer(c_int) :: released
  integer :: n

  signal(:10) = 1
  signal(11:) = 0
  edge = edge_argument(0.3_c_double)

  ! The library answers bad arguments with C++ exceptions, and those end the process: check first. The
  ! comparison is written so that not-a-number is refused too.
  if (.not. (edge > 0 .and. edge < 1)) then
    write (error_unit, '(a)') "first_filter: the edge has to lie between 0 and 1, the Nyquist frequency"
    stop 1, quiet=.true.
  end if

  tapArray = CreateFirByWindow(order, lowPass, hamming, edge, unused)
  call c_f_pointer(tapArray, taps, [order + 1])
  filteredArray = Filter(signal, taps, signalLength=sampleCount, coefCount=order + 1)
  call c_f_pointer(filteredArray, filtered, [sampleCount])

  do n = 1, sampleCount
    write (*, '(i2, 1x, f4.1, 1x, f9.6)') n - 1, signal(n), filtered(n)
  end do

  ! Never "deallocate (taps)": the arrays belong to the library.
  released = ReleaseDoubleArray(filteredArray)
  released = ReleaseDoubleArray(tapArray)

contains

  ! The first argument of the command line, or a value that no check lets pass when it is no number.
  function edge_argument(default) result(value)
    real(c_double), intent(in) :: default
    real(c_double) :: value
    character(len=64) :: text
    integer :: status

    value = default
    if (command_argument_count() == 0) return
    call get_command_argument(1, text)
    read (text, '(f64.0)', iostat=status) value
    if (status /= 0) value = -1
  end function
end program
