!> How the modules of the section library pass arguments.
module section_arguments
    use, intrinsic :: iso_c_binding, only: c_float, c_int32_t
    implicit none
    private

    integer, parameter, public :: section_int = c_int32_t
    integer, parameter, public :: section_real = c_float
    integer, parameter, public :: most_values = 17

    !> What no value is: it marks the places that the library left alone.
    real(section_real), parameter, public :: unwritten = -huge(1.0_section_real)

    public :: hand_over, tell, trimmed

contains

    !> The values that the library wrote.
    subroutine hand_over(buffer, values)
        real(section_real), intent(in) :: buffer(:)
        real(section_real), allocatable, intent(out) :: values(:)
        values = buffer(:count(buffer > unwritten))
    end subroutine hand_over

    subroutine tell(err, status)
        integer(section_int), intent(in) :: err
        integer(section_int), intent(out), optional :: status
        if (present(status)) status = err
    end subroutine tell

    !> The length of a text without the blanks at its end.
    pure function trimmed(text) result(length)
        character(*), intent(in) :: text
        integer(section_int) :: length
        length = int(len_trim(text), section_int)
    end function trimmed
end module section_arguments
