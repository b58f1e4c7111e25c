!> Catalogues of standard cross-sections.
!>
!>     use section_catalogue
!>     character(longest_name) :: name
!>     real(section_real), allocatable :: values(:)
!>     integer(section_int) :: rows
!>     logical :: found
!>
!>     call open_catalogue(american, opened=found)
!>     call get_section(1, 1, "W12X26", millimetre, values)            ! a W shape
!>     call get_sorted_sections(1, 1, [ascending(1)], inch, rows)      ! all, by area
!>     call get_first_section(slot_sorted, name, values, found)
!>     do while (found)
!>         call get_next_section(slot_sorted, name, values, found)
!>     end do
!>     call close_catalogue()
!>
!> What holds everywhere:
!> - `catalogue` (in) is the number of a catalogue and `section_type` (in) that of a family in it.
!> - A name that comes in may be padded with blanks and in any letter case. One that goes out is
!>   padded with blanks, and cut where the variable is shorter; longest_name is long enough.
!> - `unit` (in) is a code below: lengths, areas and the like are converted to it, and forces to
!>   kips. With as_stored, or any other code, the values stay in the units of the catalogue.
!> - `values` (out) are the columns of the family, the first one being value 1: at most
!>   most_values, and of size 0 where there is no such section. A text counts as 0.
!> - `rows` (out) is the number of rows that a list found. The rows stand in the list's slot until
!>   the next list of that kind.
!> - `found` (out) tells whether there is such a section or row.
!> - `status` (out, optional) is the kind of this call's failure, status_ok where there is none;
!>   get_last_message tells what failed. That nothing is found is no failure.
!> - One catalogue is open at a time, and one thread calls. A protected catalogue's password is
!>   that of set_password or the environment variable SECTIONDB_PASSWORD.
!> - Numbers have the kinds section_int and section_real, whatever the compiler's default ones are.
module section_catalogue
    use, intrinsic :: iso_c_binding, only: c_char, c_loc, c_null_ptr
    use section_arguments
    use section_engine
    use section_joists
    use section_settings
    use section_values
    implicit none
    private

    public :: section_int, section_real, most_values
    integer, parameter, public :: longest_name = 64

    integer(section_int), parameter, public :: as_stored = 0
    integer(section_int), parameter, public :: inch = 1001, foot = 1002, yard = 1003
    integer(section_int), parameter, public :: millimetre = 1004, centimetre = 1005
    integer(section_int), parameter, public :: decimetre = 1006, metre = 1007, kilometre = 1008

    integer(section_int), parameter, public :: kip = 2001, pound = 2002, kilogram = 2003
    integer(section_int), parameter, public :: metric_ton = 2004, newton = 2005
    integer(section_int), parameter, public :: decanewton = 2006, kilonewton = 2007
    integer(section_int), parameter, public :: meganewton = 2008

    integer(section_int), parameter, public :: american = 1, aluminium = 17
    integer(section_int), parameter, public :: american_cold_formed = 18, steel_joists = 21
    integer(section_int), parameter, public :: user_tables = 1001, generic_shapes = 1010

    !> Where each query leaves its rows.
    integer(section_int), parameter, public :: slot_lookup = 0, slot_sorted = 1, slot_like = 2
    integer(section_int), parameter, public :: slot_range = 3, slot_assign = 4, slot_k_joists = 5
    integer(section_int), parameter, public :: slot_kcs_joists = 6, slot_long_span_joists = 7
    integer(section_int), parameter, public :: slot_girders = 8

    integer(section_int), parameter, public :: status_ok = 0, status_memory = 1, status_file = 2
    integer(section_int), parameter, public :: status_resource = 3, status_data_access = 4
    integer(section_int), parameter, public :: status_component = 5, status_archive = 6
    integer(section_int), parameter, public :: status_refused = 7 !! another thread is inside

    !> The name, where a value is asked for to sort by.
    integer(section_int), parameter, public :: by_name = 0

    !> A value to sort by, made with ascending(value) or descending(value).
    type, public :: sort_key
        private
        integer(section_int) :: column = -1 ! counted from 0; a negative one ends the keys
        integer(section_int) :: direction = 0
    end type sort_key

    public :: ascending, descending
    public :: set_catalogue_folder, set_user_table_file, set_settings_file, set_selection_file
    public :: set_password, set_user_section_file, get_last_message
    public :: open_catalogue, close_catalogue, close_slot, terminate_session
    public :: get_customized, get_section_count
    public :: get_value_count, get_value_name, get_value_unit, get_value_unit_label
    public :: get_first_section, get_next_section, get_previous_section, get_last_section
    public :: get_section, get_section_type, get_castellated_root_beam
    public :: get_steel_joist, get_joist_girder, get_aluminium_properties
    public :: get_sorted_sections, get_like_sections, get_range_sections, get_assign_sections
    public :: get_k_joists, get_kcs_joists, get_lh_joists, get_dlh_joists, get_joist_girders
    public :: find_lh_load_type, find_dlh_load_type

    !> Column of the table, counted from 0, that stands before value 1.
    integer(section_int), parameter :: name_column = 2

contains

    elemental function ascending(value) result(key)
        integer(section_int), intent(in) :: value !! a value, counted from 1, or by_name
        type(sort_key) :: key
        key = sort_key(name_column + value, 0)
    end function ascending

    elemental function descending(value) result(key)
        integer(section_int), intent(in) :: value !! a value, counted from 1, or by_name
        type(sort_key) :: key
        key = sort_key(name_column + value, 1)
    end function descending

    ! Lifetime.

    !> Opens a catalogue and empties all slots. One that has no file is not opened: status_file.
    subroutine open_catalogue(catalogue, status, opened)
        integer(section_int), intent(in) :: catalogue
        integer(section_int), intent(out), optional :: status
        logical, intent(out), optional :: opened
        integer(section_int) :: current, err, ignored
        call begin()
        call opensectiondatabase(catalogue, err)
        call getopencatalogue(current, ignored)
        if (current /= catalogue .and. err == status_ok) err = status_file
        if (present(opened)) opened = current == catalogue
        call tell(err, status)
    end subroutine open_catalogue

    !> Closes the open catalogue and all slots.
    subroutine close_catalogue(status)
        integer(section_int), intent(out), optional :: status
        integer(section_int) :: err
        call begin()
        call closesectiondatabase(err)
        call tell(err, status)
    end subroutine close_catalogue

    !> Gives the rows of a slot back. The values of a joist slot that was closed read as 0 until
    !> the catalogue is opened again.
    subroutine close_slot(slot, status)
        integer(section_int), intent(in) :: slot
        integer(section_int), intent(out), optional :: status
        integer(section_int) :: err
        call begin()
        call closesectionrecordset(slot, err)
        call tell(err, status)
    end subroutine close_slot

    !> To be called once, at the end of the run.
    subroutine terminate_session()
        call terminatedaosession()
    end subroutine terminate_session

    !> Whether the settings redirect a catalogue to another file.
    subroutine get_customized(catalogue, customized, status)
        integer(section_int), intent(in) :: catalogue
        logical, intent(out) :: customized
        integer(section_int), intent(out), optional :: status
        integer(section_int) :: answer, err
        call begin()
        call issectiondatabasecustomized(catalogue, answer, err)
        customized = answer /= 0
        call tell(err, status)
    end subroutine get_customized

    !> The number of sections of a family.
    subroutine get_section_count(catalogue, section_type, sections, status)
        integer(section_int), intent(in) :: catalogue, section_type
        integer(section_int), intent(out) :: sections
        integer(section_int), intent(out), optional :: status
        integer(section_int) :: err
        call begin()
        sections = 0
        call getsectioncount(catalogue, section_type, sections, err)
        call tell(err, status)
    end subroutine get_section_count

    ! The cursor. `found` (out) is false when the slot has no such row: `name` is then blank.

    subroutine get_first_section(slot, name, values, found, status)
        integer(section_int), intent(in) :: slot
        character(*), intent(out) :: name
        real(section_real), allocatable, intent(out) :: values(:)
        logical, intent(out) :: found
        integer(section_int), intent(out), optional :: status
        call step(getfirstsection, slot, name, values, found, status)
    end subroutine get_first_section

    subroutine get_next_section(slot, name, values, found, status)
        integer(section_int), intent(in) :: slot
        character(*), intent(out) :: name
        real(section_real), allocatable, intent(out) :: values(:)
        logical, intent(out) :: found
        integer(section_int), intent(out), optional :: status
        call step(getnextsection, slot, name, values, found, status)
    end subroutine get_next_section

    subroutine get_previous_section(slot, name, values, found, status)
        integer(section_int), intent(in) :: slot
        character(*), intent(out) :: name
        real(section_real), allocatable, intent(out) :: values(:)
        logical, intent(out) :: found
        integer(section_int), intent(out), optional :: status
        call step(getprevsection, slot, name, values, found, status)
    end subroutine get_previous_section

    subroutine get_last_section(slot, name, values, found, status)
        integer(section_int), intent(in) :: slot
        character(*), intent(out) :: name
        real(section_real), allocatable, intent(out) :: values(:)
        logical, intent(out) :: found
        integer(section_int), intent(out), optional :: status
        call step(getlastsection, slot, name, values, found, status)
    end subroutine get_last_section

    ! Single sections.

    !> A section. Of two that are joined ("W12X26+W10X12"), both of the family, the values are those
    !> of the first, but for value 4, which is the sum of both.
    subroutine get_section(catalogue, section_type, name, unit, values, status, found)
        integer(section_int), intent(in) :: catalogue, section_type, unit
        character(*), intent(in) :: name
        real(section_real), allocatable, intent(out) :: values(:)
        integer(section_int), intent(out), optional :: status
        logical, intent(out), optional :: found
        real(section_real) :: buffer(most_values)
        integer(section_int) :: rows, value_count, err
        call begin()
        buffer = unwritten
        call getsection(catalogue, section_type, name, trimmed(name), unit, buffer, rows, &
                        value_count, err)
        call hand_over(buffer, values, found)
        call tell(err, status)
    end subroutine get_section

    !> The family that a section belongs to (0 when there is none), and on request its values.
    subroutine get_section_type(catalogue, name, section_type, unit, values, status)
        integer(section_int), intent(in) :: catalogue
        character(*), intent(in) :: name
        integer(section_int), intent(out) :: section_type
        integer(section_int), intent(in), optional :: unit !! as_stored without it
        real(section_real), allocatable, intent(out), optional :: values(:)
        integer(section_int), intent(out), optional :: status
        real(section_real), target :: buffer(most_values)
        integer(section_int) :: chosen_unit, rows, value_count, err
        call begin()
        section_type = 0
        err = status_ok
        chosen_unit = as_stored
        if (present(unit)) chosen_unit = unit
        buffer = unwritten
        call getsectiontypefromvessaname(catalogue, section_type, name, trimmed(name), &
            chosen_unit, merge(c_loc(buffer), c_null_ptr, present(values)), rows, value_count, err)
        if (present(values)) call hand_over(buffer, values)
        call tell(err, status)
    end subroutine get_section_type

    !> The beam that a castellated beam is cut from: its family and its values.
    subroutine get_castellated_root_beam(catalogue, castellated_type, name, unit, root_type, &
                                         values, status, found)
        integer(section_int), intent(in) :: catalogue, castellated_type, unit
        character(*), intent(in) :: name !! of the castellated beam
        integer(section_int), intent(out) :: root_type !! 0 when there is no such beam
        real(section_real), allocatable, intent(out) :: values(:)
        integer(section_int), intent(out), optional :: status
        logical, intent(out), optional :: found
        real(section_real) :: buffer(most_values)
        integer(section_int) :: rows, value_count, err
        call begin()
        buffer = unwritten
        root_type = castellated_type
        ! The library goes on from the section that was looked up before.
        call getsection(catalogue, castellated_type, name, trimmed(name), unit, buffer, rows, &
                        value_count, err)
        buffer = unwritten
        call getcastellatedrootbeamsection(catalogue, root_type, name, trimmed(name), unit, &
                                           buffer, rows, value_count, err)
        call hand_over(buffer, values, found)
        if (size(values) == 0) root_type = 0
        call tell(err, status)
    end subroutine get_castellated_root_beam

    !> The strengths of an aluminium alloy for a product and a thickness. The first value is the
    !> column behind the product, and forces are converted to `force_unit`.
    subroutine get_aluminium_properties(catalogue, section_type, alloy, product, alclad, welded, &
                                        thickness, unit, force_unit, values, status, found)
        integer(section_int), intent(in) :: catalogue, section_type, unit
        character(*), intent(in) :: alloy
        integer(section_int), intent(in) :: product !! 0 all, 1 extrusions, 2 drawn tube, 3 pipe
        integer(section_int), intent(in) :: alclad, welded !! 1 or 0
        real(section_real), intent(in) :: thickness !! in the unit of the catalogue
        integer(section_int), intent(in) :: force_unit !! kip to meganewton
        real(section_real), allocatable, intent(out) :: values(:)
        integer(section_int), intent(out), optional :: status
        logical, intent(out), optional :: found
        real(section_real) :: buffer(most_values)
        integer(section_int) :: rows, value_count, err
        call begin()
        buffer = unwritten
        call getaluminiummaterialproperty(catalogue, section_type, alloy, trimmed(alloy), product, &
            alclad, welded, thickness, unit, force_unit, buffer, rows, value_count, err)
        call hand_over(buffer, values, found)
        call tell(err, status)
    end subroutine get_aluminium_properties

    ! Lists of sections, in the order of `keys` (in, any size; empty leaves the catalogue's order).

    !> All sections of a family, into slot_sorted.
    subroutine get_sorted_sections(catalogue, section_type, keys, unit, rows, status)
        integer(section_int), intent(in) :: catalogue, section_type, unit
        type(sort_key), intent(in) :: keys(:)
        integer(section_int), intent(out) :: rows
        integer(section_int), intent(out), optional :: status
        integer(section_int) :: value_count, err
        call begin()
        call getsortedsections(catalogue, section_type, ended(keys), ended_size(keys), unit, rows, &
                               value_count, err)
        call tell(err, status)
    end subroutine get_sorted_sections

    !> Those whose name begins with `pattern`, into slot_like.
    subroutine get_like_sections(catalogue, section_type, keys, pattern, unit, rows, status)
        integer(section_int), intent(in) :: catalogue, section_type, unit
        type(sort_key), intent(in) :: keys(:)
        character(*), intent(in) :: pattern
        integer(section_int), intent(out) :: rows
        integer(section_int), intent(out), optional :: status
        integer(section_int) :: value_count, err
        call begin()
        call getlikesortedsections(catalogue, section_type, ended(keys), ended_size(keys), &
            pattern, trimmed(pattern), unit, rows, value_count, err)
        call tell(err, status)
    end subroutine get_like_sections

    !> Those of which a value lies between two bounds, both included, into slot_range.
    subroutine get_range_sections(catalogue, section_type, keys, value, lower, upper, unit, rows, &
                                  status)
        integer(section_int), intent(in) :: catalogue, section_type, unit
        type(sort_key), intent(in) :: keys(:)
        integer(section_int), intent(in) :: value !! counted from 1
        real(section_real), intent(in) :: lower, upper !! in `unit`
        integer(section_int), intent(out) :: rows
        integer(section_int), intent(out), optional :: status
        real(section_real) :: least, greatest
        integer(section_int) :: value_count, err
        call begin()
        least = lower ! the library converts the bounds in place
        greatest = upper
        call getrangesortedsections(catalogue, section_type, ended(keys), ended_size(keys), &
            name_column + value, greatest, least, unit, rows, value_count, err)
        call tell(err, status)
    end subroutine get_range_sections

    !> The section of a name or, where it is not known, those of at least the average area, the
    !> smallest first, into slot_assign.
    subroutine get_assign_sections(catalogue, section_type, name, unit, rows, status)
        integer(section_int), intent(in) :: catalogue, section_type, unit
        character(*), intent(in) :: name
        integer(section_int), intent(out) :: rows
        integer(section_int), intent(out), optional :: status
        integer(section_int) :: value_count, err
        call begin()
        call getassignsections(catalogue, section_type, name, trimmed(name), unit, rows, &
                               value_count, err)
        call tell(err, status)
    end subroutine get_assign_sections

    ! What the calls share.

    subroutine step(move, slot, name, values, found, status)
        interface
            subroutine move(slot, name, name_length, values, status, err) bind(C)
                import :: c_char, section_int, section_real
                integer(section_int), intent(in) :: slot
                character(kind=c_char), intent(inout) :: name(*)
                integer(section_int), value :: name_length
                real(section_real), intent(inout) :: values(*)
                integer(section_int), intent(out) :: status, err
            end subroutine move
        end interface
        integer(section_int), intent(in) :: slot
        character(*), intent(out) :: name
        real(section_real), allocatable, intent(out) :: values(:)
        logical, intent(out) :: found
        integer(section_int), intent(out), optional :: status
        real(section_real) :: buffer(most_values)
        integer(section_int) :: moved, err
        call begin()
        buffer = unwritten
        name = ""
        call move(slot, name, int(len(name), section_int), buffer, moved, err)
        call pad(name)
        found = moved /= 0
        call hand_over(buffer, values)
        call tell(err, status)
    end subroutine step

    !> Keys as the library takes them: columns, then directions, each list with its end.
    pure function ended(keys) result(pairs)
        type(sort_key), intent(in) :: keys(:)
        integer(section_int) :: pairs(size(keys) + 1, 2)
        type(sort_key), parameter :: last = sort_key()
        pairs(:, 1) = [keys%column, last%column]
        pairs(:, 2) = [keys%direction, last%direction]
    end function ended

    pure function ended_size(keys) result(length)
        type(sort_key), intent(in) :: keys(:)
        integer(section_int) :: length
        length = int(size(keys) + 1, section_int)
    end function ended_size
end module section_catalogue
