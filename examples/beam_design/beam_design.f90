!> Picks the lightest American W shape for a simply supported floor beam.
!>
!>     beam_design [SPAN DEAD LIVE]
!>
!> SPAN is in ft (30), the uniform loads DEAD and LIVE in kip/ft (0.8 and 1.2); the beam's own
!> weight is added. The compression flange is supported over its full length. Checked are:
!> - bending strength (AISC 360-16, F2.1): Mu <= phi Mn = 0.9 Fy Zx, with wu = 1.2 D + 1.6 L. F2 is
!>   for compact shapes: those with slender flanges (table B4.1b, case 10) are passed over. The webs
!>   of all W shapes are compact at this yield stress.
!> - the deflection under the live load alone: L / 360.
!>
!> The catalogues are those of the installation, or in the folder that the environment variable
!> SECTIONDB_FOLDER names.
program beam_design
    use, intrinsic :: iso_fortran_env, only: error_unit
    use section_catalogue
    implicit none

    integer, parameter :: dp = kind(1.0d0)
    integer(section_int), parameter :: w_shape = 1

    real(dp), parameter :: yield_stress = 50 ! ksi, A992
    real(dp), parameter :: elastic_modulus = 29000 ! ksi
    real(dp), parameter :: phi = 0.9_dp
    real(dp), parameter :: weight_of_steel = 0.490_dp ! kip/ft^3
    real(dp), parameter :: inches_per_foot = 12

    !> The units that a quantity is printed in.
    type :: unit_pair
        character(6) :: name
        character(4) :: metric_name
        real(dp) :: factor ! from the first to the metric one
    end type unit_pair
    real(dp), parameter :: kilonewtons = 4.4482216152605_dp ! of a kip
    real(dp), parameter :: metres = 0.3048_dp ! of a foot
    type(unit_pair), parameter :: length = unit_pair("ft", "m", metres)
    type(unit_pair), parameter :: small_length = unit_pair("in", "mm", 25.4_dp)
    type(unit_pair), parameter :: line_load = unit_pair("kip/ft", "kN/m", kilonewtons / metres)
    type(unit_pair), parameter :: weight = unit_pair("lb/ft", "kN/m", kilonewtons / metres / 1000)
    type(unit_pair), parameter :: moment = unit_pair("kip-ft", "kN-m", kilonewtons * metres)

    ! The values of an I shape.
    integer(section_int), parameter :: ax = 1, bf = 3, tf = 4, iz = 6, zz = 10
    character(2), parameter :: labels(11) = &
        ["AX", "D ", "BF", "TF", "TW", "IZ", "IX", "CW", "IY", "ZZ", "ZY"]
    character(2), parameter :: powers(size(labels)) = & ! of the length
        ["^2", "  ", "  ", "  ", "  ", "^4", "^4", "^6", "^4", "^3", "^3"]

    real(dp) :: span, dead_load, live_load ! ft, kip/ft, kip/ft
    character(longest_name) :: name
    real(section_real), allocatable :: values(:)
    character(256) :: message
    logical :: opened

    call read_arguments()
    call open_catalogue(american, opened=opened)
    if (.not. opened) then
        call get_last_message(message)
        call fail("The American catalogue cannot be opened: check its file in the folder that " // &
                  "SECTIONDB_FOLDER names, and SECTIONDB_PASSWORD. " // trim(message))
    end if
    call choose()
    if (size(values) == 0) then
        call close_catalogue()
        call fail("No W shape of the American catalogue will do.")
    end if
    call print_checks()
    call print_properties(inch, "in")
    call print_properties(millimetre, "mm")
    call print_with_cover_beam("W12X26")
    call close_catalogue()
    call terminate_session()
    deallocate (values)

contains

    subroutine read_arguments()
        if (command_argument_count() > 3) call fail("Usage: beam_design [SPAN DEAD LIVE]")
        span = argument(1, 30.0_dp)
        dead_load = argument(2, 0.8_dp)
        live_load = argument(3, 1.2_dp)
        if (span <= 0 .or. dead_load < 0 .or. live_load < 0) then
            call fail("The span must be above 0, and no load below 0.")
        end if
    end subroutine read_arguments

    function argument(number, default_value) result(value)
        integer, intent(in) :: number
        real(dp), intent(in) :: default_value
        real(dp) :: value
        character(32) :: text
        integer :: cut, failure
        value = default_value
        if (command_argument_count() < number) return
        call get_command_argument(number, text, status=cut)
        read (text, *, iostat=failure) value
        if (cut /= 0 .or. failure /= 0 .or. verify(trim(text), "+-.0123456789Ee") /= 0) then
            call fail(trim(text) // " is not a number. Usage: beam_design [SPAN DEAD LIVE]")
        end if
    end function argument

    subroutine fail(message)
        character(*), intent(in) :: message
        write (error_unit, "(2a)") "beam_design: ", message
        stop 1
    end subroutine fail

    !> Walks the W shapes from the smallest area up, the strongest of equal ones first, to the first
    !> that will do. There are no values when none does.
    subroutine choose()
        integer(section_int) :: rows
        logical :: found
        call get_sorted_sections(american, w_shape, [ascending(ax), descending(zz)], inch, rows)
        call get_first_section(slot_sorted, name, values, found)
        do while (found)
            if (will_do()) exit
            call get_next_section(slot_sorted, name, values, found)
        end do
        call close_slot(slot_sorted)
    end subroutine choose

    function will_do()
        logical :: will_do
        will_do = is_compact() .and. required_strength() <= strength() .and. &
                  deflection() <= greatest_deflection()
    end function will_do

    function is_compact()
        logical :: is_compact
        is_compact = values(bf) / (2 * values(tf)) <= 0.38_dp * sqrt(elastic_modulus / yield_stress)
    end function is_compact

    !> kip/ft
    function own_weight()
        real(dp) :: own_weight
        own_weight = values(ax) / inches_per_foot**2 * weight_of_steel
    end function own_weight

    !> Mu in kip-ft
    function required_strength()
        real(dp) :: required_strength
        required_strength = (1.2_dp * (dead_load + own_weight()) + 1.6_dp * live_load) * span**2 / 8
    end function required_strength

    !> phi Mn in kip-ft
    function strength()
        real(dp) :: strength
        strength = phi * yield_stress * values(zz) / inches_per_foot
    end function strength

    !> Under the live load, in inches.
    function deflection()
        real(dp) :: deflection
        deflection = 5 * (live_load / inches_per_foot) * (span * inches_per_foot)**4 / &
                     (384 * elastic_modulus * values(iz))
    end function deflection

    function greatest_deflection()
        real(dp) :: greatest_deflection
        greatest_deflection = span * inches_per_foot / 360
    end function greatest_deflection

    subroutine print_checks()
        call print_value("Span", span, length)
        call print_value("Dead load, beam apart", dead_load, line_load)
        call print_value("Live load", live_load, line_load)
        print "(a)", "Lightest W shape: " // trim(name)
        call print_value("Own weight", 1000 * own_weight(), weight)
        call print_value("Required strength Mu", required_strength(), moment)
        call print_value("Strength phi Mn (F2.1)", strength(), moment)
        call print_value("Live-load deflection", deflection(), small_length)
        call print_value("Limit L/360", greatest_deflection(), small_length)
    end subroutine print_checks

    subroutine print_value(label, value, unit)
        character(*), intent(in) :: label
        real(dp), intent(in) :: value
        type(unit_pair), intent(in) :: unit
        print "(2x, a, t26, 2(f12.3, 1x, a))", label, value, unit%name, value * unit%factor, &
            trim(unit%metric_name)
    end subroutine print_value

    subroutine print_properties(unit, unit_name)
        integer(section_int), intent(in) :: unit
        character(*), intent(in) :: unit_name
        integer :: i
        call get_section(american, w_shape, name, unit, values)
        print "(/, 5a)", trim(name), " in ", unit_name, ":"
        do i = 1, size(values)
            print "(2x, a, 1x, es14.5, 1x, 2a)", labels(i), values(i), unit_name, trim(powers(i))
        end do
    end subroutine print_properties

    !> Looks two joined sections up. All values are those of the first but for the fourth, which
    !> adds up: the flange thickness of both.
    subroutine print_with_cover_beam(other)
        character(*), intent(in) :: other
        call get_section(american, w_shape, trim(name) // "+" // other, inch, values)
        print "(/, 4a)", trim(name), "+", other, ":"
        print "(2x, a, 1x, es14.5, 1x, a)", labels(ax), values(ax), "in^2", &
            labels(tf), values(tf), "in, of both"
    end subroutine print_with_cover_beam
end program beam_design
