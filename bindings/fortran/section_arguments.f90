!> How the modules of the section library pass arguments.
module section_arguments
    use, intrinsic :: iso_c_binding, only: c_float, c_int32_t, c_null_char
    use section_engine, only: resetsectionstatus
    implicit none
    private

    integer, parameter, public :: section_int = c_int32_t
    integer, parameter, public :: section_real = c_float
    integer, parameter, public :: most_values = 17

    !> What no value is: it marks the places that the library left alone.
    real(section_real), parameter, public :: unwritten = -huge(1.0_section_real)

    public :: begin, hand_over, pad, tell, trimmed

contains

    !> To be called before the library is: the status is that of the call alone.
    subroutine begin()
        integer(section_int) :: err
        call resetsectionstatus(err)
    end subroutine begin

    !> The values that the library wrote, and whether there are any.
    subroutine hand_over(buffer, values, found)
        real(section_real), intent(in) :: buffer(:)
        real(section_real), allocatable, intent(out) :: values(:)
        logical, intent(out), optional :: found
        ! By their bits: to compare what is not a number may stop the program.
        integer(c_int32_t), parameter :: mark = transfer(unwritten, 0_c_int32_t)
        values = buffer(:count(transfer(buffer, [mark]) /= mark))
        if (present(found)) found = size(values) > 0
    end subroutine hand_over

    !> Pads a text that the library has written with blanks.
    subroutine pad(text)
        character(*), intent(inout) :: text
        integer :: end_of_text
        end_of_text = index(text, c_null_char)
        if (end_of_text > 0) text(end_of_text:) = ""
    end subroutine pad

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
