!> Calls the library as an engine does, and prints "label|name|numbers" for each answer.
program scenario
    use section_catalogue
    implicit none

    integer(section_int), parameter :: joists = steel_joists
    integer(section_int), parameter :: w_shape = 1, rod = 15, castellated = 13, alloy = 22

    character(longest_name) :: name
    real(section_real), allocatable :: values(:)
    integer(section_int) :: number, status
    logical :: found

    call set_folder()
    call count_sections()
    call open_catalogue(american, status)
    call show_number("open", status)
    call list_sections()
    call look_sections_up()
    call open_catalogue(joists)
    call list_joists()
    call look_joists_up()
    call open_catalogue(aluminium)
    call get_aluminium_properties(aluminium, alloy, "6061", 3_section_int, 0_section_int, &
        0_section_int, 0.5_section_real, millimetre, kilonewton, values)
    call show("aluminium", "", values)
    call close_catalogue(status)
    call show_number("close", status)
    call terminate_session()
    deallocate (values)

contains

    subroutine show(label, text, numbers)
        character(*), intent(in) :: label, text
        real(section_real), intent(in) :: numbers(:)
        print "(4a, *(es16.8))", label, "|", trim(text), "|", numbers
    end subroutine show

    subroutine show_number(label, value)
        character(*), intent(in) :: label
        integer(section_int), intent(in) :: value
        call show(label, "", [real(value, section_real)])
    end subroutine show_number

    !> The rows of a slot, and one more step.
    subroutine walk(label, slot)
        character(*), intent(in) :: label
        integer(section_int), intent(in) :: slot
        call get_first_section(slot, name, values, found)
        do while (found)
            call show(label, name, values)
            call get_next_section(slot, name, values, found)
        end do
        call show(label, name, values)
    end subroutine walk

    subroutine set_folder()
        character(4096) :: folder
        call get_environment_variable("SECTIONDB_FOLDER", folder)
        call set_catalogue_folder(folder)
        call set_selection_file("without effect")
    end subroutine set_folder

    subroutine count_sections()
        logical :: customized
        call get_section_count(american, w_shape, number)
        call show_number("sections", number)
        call get_value_count(american, w_shape, number)
        call show_number("values", number)
        call get_customized(american, customized)
        call show_number("customized", merge(1_section_int, 0_section_int, customized))
    end subroutine count_sections

    subroutine list_sections()
        character(1) :: short_name
        call get_sorted_sections(american, rod, [descending(3_section_int), &
                                                 ascending(by_name)], millimetre, number, status)
        call show_number("sorted", number)
        call show_number("sorted", status)
        call walk("sorted", slot_sorted)
        call get_last_section(slot_sorted, name, values, found)
        call show("last", name, values)
        call get_previous_section(slot_sorted, short_name, values, found)
        call show("cut", short_name, values)
        call close_slot(slot_sorted)
        call walk("closed", slot_sorted)
        call get_sorted_sections(american, rod, [sort_key ::], as_stored, number)
        call walk("unsorted", slot_sorted)
        call get_like_sections(american, rod, [ascending(by_name)], "R  ", inch, number)
        call walk("like", slot_like)
        call get_range_sections(american, rod, [descending(1_section_int)], 1_section_int, &
                                25.0_section_real, 51.0_section_real, millimetre, number)
        call walk("range", slot_range)
        call get_assign_sections(american, rod, "", centimetre, number)
        call walk("assign", slot_assign)
    end subroutine list_sections

    subroutine look_sections_up()
        real(section_real) :: factor
        call get_section(american, w_shape, "w12x26   ", millimetre, values)
        call show("section", "", values)
        call get_section(american, w_shape, "W12X26+W4X13", inch, values)
        call show("joined", "", values)
        call get_section(american, w_shape, "nothing", inch, values)
        call show("nothing", "", values)
        call get_section_type(american, "ra", number, values=values)
        call show_number("type", number)
        call show("type", "", values)
        call get_section_type(american, "W4X13", number)
        call show_number("type", number)
        call get_section_type(american, "nothing", number, status=status)
        call show_number("type", number)
        call show_number("type", status)
        call get_castellated_root_beam(american, castellated, "cb18", inch, number, values)
        call show_number("root", number)
        call show("root", "", values)
        call get_value_unit(american, w_shape, 5_section_int, metre, number, factor)
        call show("unit", "", [real(number, section_real), factor])
        call get_value_unit(american, w_shape, 12_section_int, metre, number, factor)
        call show("unit", "", [real(number, section_real), factor])
    end subroutine look_sections_up

    subroutine list_joists()
        integer(section_int) :: load_type
        call get_k_joists(joists, 1_section_int, 20.0_section_real, 250.0_section_real, &
                          150.0_section_real, number)
        call walk("K", slot_k_joists)
        call get_kcs_joists(joists, 2_section_int, 500.0_section_real, 3900.0_section_real, number)
        call walk("KCS", slot_kcs_joists)
        call find_lh_load_type(joists, 3_section_int, 30.0_section_real, 20.0_section_real, &
                               load_type)
        call show_number("LH", load_type)
        call get_lh_joists(joists, 3_section_int, load_type, 30.0_section_real, 20.0_section_real, &
                           7900.0_section_real, 0.0_section_real, number)
        call walk("LH", slot_long_span_joists)
        call find_dlh_load_type(joists, 4_section_int, 22.0_section_real, 24.0_section_real, &
                                load_type)
        call show_number("DLH", load_type)
        call get_dlh_joists(joists, 4_section_int, load_type, 22.0_section_real, &
                            20.0_section_real, 900.0_section_real, 590.0_section_real, number)
        call walk("DLH", slot_long_span_joists)
        call get_joist_girders(joists, 5_section_int, 29.0_section_real, 5_section_int, &
                               4.0_section_real, 27.0_section_real, number)
        call walk("girders", slot_girders)
    end subroutine list_joists

    subroutine look_joists_up()
        call get_steel_joist(joists, 2_section_int, "kcs", values)
        call show("joist", "", values)
        call get_joist_girder(joists, 5_section_int, "36s28g6n4.5k", values)
        call show("girder", "", values)
    end subroutine look_joists_up
end program scenario
