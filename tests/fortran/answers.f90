!> Opens catalogues that cannot be opened and one that can, and prints what the library tells.
program answers
    use section_catalogue
    implicit none

    integer(section_int), parameter :: british = 3, korean = 16, w_shape = 1
    character(256) :: text
    real(section_real), allocatable :: values(:)
    integer(section_int) :: status, value
    logical :: found

    call try(british) ! without a file
    call try(korean) ! damaged
    call set_password("a=b;c", status)
    print "(a, i0)", "password: ", status
    call try(american)
    do value = 6, 12, 6
        call get_value_name(american, w_shape, value, text)
        write (*, "(a)", advance="no") "value: " // trim(text)
        call get_value_unit_label(american, w_shape, value, millimetre, text)
        print "(a)", " in " // trim(text)
    end do
    call get_section(american, w_shape, "w12x26", inch, values, status, found)
    print "(a, l1, 1x, i0, 1x, i0)", "section: ", found, size(values), status
    call get_section(american, w_shape, "W12X27", inch, values, status, found)
    print "(a, l1, 1x, i0, 1x, i0)", "section: ", found, size(values), status
    call get_sorted_sections(american, w_shape, [descending(99_section_int)], inch, value, status)
    print "(a, i0)", "sorted: ", status
    call get_sorted_sections(american, w_shape, [descending(1_section_int)], inch, value, status)
    print "(a, i0)", "sorted: ", status
    call close_catalogue()
    call terminate_session()
    deallocate (values) ! or the leak checker tells of it: a program keeps its variables

contains

    subroutine try(catalogue)
        integer(section_int), intent(in) :: catalogue
        call open_catalogue(catalogue, status, found)
        call get_last_message(text)
        print "(a, i0, a, l1, 1x, i0, 1x, a)", "open ", catalogue, ": ", found, status, trim(text)
    end subroutine try
end program answers
