!> Steel joists and joist girders, as part of section_catalogue, which tells what holds of all
!> arguments. Spans, depths, loads and values are in the units of the joist catalogue.
module section_joists
    use section_arguments
    use section_engine
    implicit none
    private

    public :: get_steel_joist, get_joist_girder
    public :: get_k_joists, get_kcs_joists, get_lh_joists, get_dlh_joists, get_joist_girders
    public :: find_lh_load_type, find_dlh_load_type

    integer(section_int), parameter :: ignored_unit = 0

contains

    !> A joist of a series (1 K, 2 KCS, 3 LH, 4 DLH) by its designation: depth and weight, in the
    !> units of the catalogue.
    subroutine get_steel_joist(catalogue, series, designation, values, status, found)
        integer(section_int), intent(in) :: catalogue, series
        character(*), intent(in) :: designation
        real(section_real), allocatable, intent(out) :: values(:)
        integer(section_int), intent(out), optional :: status
        logical, intent(out), optional :: found
        real(section_real) :: buffer(most_values)
        integer(section_int) :: rows, value_count, err
        call begin()
        buffer = unwritten
        call getsteeljoist(catalogue, series, designation, trimmed(designation), ignored_unit, &
                           buffer, rows, value_count, err)
        call hand_over(buffer, values, found)
        call tell(err, status)
    end subroutine get_steel_joist

    !> A joist girder (series 5) by its designation ("40S48G5N12.0K"): span, number of joist
    !> spaces, spacing, panel load, depth, weight and two notes, in the units of the catalogue.
    subroutine get_joist_girder(catalogue, series, designation, values, status, found)
        integer(section_int), intent(in) :: catalogue, series
        character(*), intent(in) :: designation
        real(section_real), allocatable, intent(out) :: values(:)
        integer(section_int), intent(out), optional :: status
        logical, intent(out), optional :: found
        real(section_real) :: buffer(most_values)
        integer(section_int) :: rows, value_count, err
        call begin()
        buffer = unwritten
        call getjoistgirder(catalogue, series, designation, trimmed(designation), ignored_unit, &
                            buffer, rows, value_count, err)
        call hand_over(buffer, values, found)
        call tell(err, status)
    end subroutine get_joist_girder

    !> K joists (series 1) that carry both loads over a span, the lightest first, into
    !> slot_k_joists. A span of 0 takes all spans.
    subroutine get_k_joists(catalogue, series, span, total_load, live_load, rows, status)
        integer(section_int), intent(in) :: catalogue, series
        real(section_real), intent(in) :: span, total_load, live_load
        integer(section_int), intent(out) :: rows
        integer(section_int), intent(out), optional :: status
        integer(section_int) :: value_count, err
        call begin()
        call getkseriessteeljoists(catalogue, series, span, total_load, live_load, ignored_unit, &
                                   rows, value_count, err)
        call tell(err, status)
    end subroutine get_k_joists

    !> KCS joists (series 2) of at least a moment and a shear capacity, the lightest first, into
    !> slot_kcs_joists.
    subroutine get_kcs_joists(catalogue, series, moment, shear, rows, status)
        integer(section_int), intent(in) :: catalogue, series
        real(section_real), intent(in) :: moment, shear
        integer(section_int), intent(out) :: rows
        integer(section_int), intent(out), optional :: status
        integer(section_int) :: value_count, err
        call begin()
        call getkcsseriessteeljoists(catalogue, series, moment, shear, ignored_unit, rows, &
                                     value_count, err)
        call tell(err, status)
    end subroutine get_kcs_joists

    !> Which loads are tabulated of LH joists (series 3) of a span and a depth: 1 safe loads,
    !> 2 total and live loads, 0 none.
    subroutine find_lh_load_type(catalogue, series, span, depth, load_type, status)
        integer(section_int), intent(in) :: catalogue, series
        real(section_real), intent(in) :: span, depth
        integer(section_int), intent(out) :: load_type
        integer(section_int), intent(out), optional :: status
        integer(section_int) :: err
        call begin()
        load_type = 0
        call findlhseriesloadtype(catalogue, series, span, depth, load_type, err)
        call tell(err, status)
    end subroutine find_lh_load_type

    !> The same of DLH joists (series 4).
    subroutine find_dlh_load_type(catalogue, series, span, depth, load_type, status)
        integer(section_int), intent(in) :: catalogue, series
        real(section_real), intent(in) :: span, depth
        integer(section_int), intent(out) :: load_type
        integer(section_int), intent(out), optional :: status
        integer(section_int) :: err
        call begin()
        load_type = 0
        call finddlhseriesloadtype(catalogue, series, span, depth, load_type, err)
        call tell(err, status)
    end subroutine find_dlh_load_type

    !> LH joists (series 3) that carry the loads, the shallowest first, into slot_long_span_joists.
    !> With load type 1 `load1` is the safe load, and `depth` that of the joists; with load type 2
    !> `load1` and `load2` are the total and the live load, and `depth` the least.
    subroutine get_lh_joists(catalogue, series, load_type, span, depth, load1, load2, rows, status)
        integer(section_int), intent(in) :: catalogue, series, load_type
        real(section_real), intent(in) :: span, depth, load1, load2
        integer(section_int), intent(out) :: rows
        integer(section_int), intent(out), optional :: status
        integer(section_int) :: value_count, err
        call begin()
        call getlhseriessteeljoists(catalogue, series, load_type, span, depth, load1, load2, &
                                    ignored_unit, rows, value_count, err)
        call tell(err, status)
    end subroutine get_lh_joists

    !> The same of DLH joists (series 4), into the same slot.
    subroutine get_dlh_joists(catalogue, series, load_type, span, depth, load1, load2, rows, status)
        integer(section_int), intent(in) :: catalogue, series, load_type
        real(section_real), intent(in) :: span, depth, load1, load2
        integer(section_int), intent(out) :: rows
        integer(section_int), intent(out), optional :: status
        integer(section_int) :: value_count, err
        call begin()
        call getdlhseriessteeljoists(catalogue, series, load_type, span, depth, load1, load2, &
                                     ignored_unit, rows, value_count, err)
        call tell(err, status)
    end subroutine get_dlh_joists

    !> Joist girders (series 5) of the next span and panel load up, into slot_girders. Their names
    !> are designations. 0 joists, and a depth of 0, take any.
    subroutine get_joist_girders(catalogue, series, span, joists, panel_load, depth, rows, status)
        integer(section_int), intent(in) :: catalogue, series, joists
        real(section_real), intent(in) :: span, panel_load
        real(section_real), intent(in) :: depth !! the greatest
        integer(section_int), intent(out) :: rows
        integer(section_int), intent(out), optional :: status
        integer(section_int) :: value_count, err
        call begin()
        call getjoistgirders(catalogue, series, span, joists, panel_load, depth, ignored_unit, &
                             rows, value_count, err)
        call tell(err, status)
    end subroutine get_joist_girders
end module section_joists
