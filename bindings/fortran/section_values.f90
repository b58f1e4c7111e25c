!> What the values of a family are, as part of section_catalogue. A value is counted from 1.
module section_values
    use section_arguments
    use section_engine
    implicit none
    private

    public :: get_value_count, get_value_name, get_value_unit, get_value_unit_label

contains

    !> The number of values of each section of a family.
    subroutine get_value_count(catalogue, section_type, value_count, status)
        integer(section_int), intent(in) :: catalogue, section_type
        integer(section_int), intent(out) :: value_count
        integer(section_int), intent(out), optional :: status
        integer(section_int) :: err
        call begin()
        value_count = 0
        call getfieldcount(catalogue, section_type, value_count, err)
        call tell(err, status)
    end subroutine get_value_count

    !> The unit that a value is stored in: the code of its first factor (kip for "KIPS/FEET"),
    !> 0 where it has none, and the factor from there to `unit`, 1 likewise. A value that the
    !> family does not have gives 0 for both.
    subroutine get_value_unit(catalogue, section_type, value, unit, unit_code, factor, status)
        integer(section_int), intent(in) :: catalogue, section_type
        integer(section_int), intent(in) :: value !! counted from 1
        integer(section_int), intent(in) :: unit !! inch to kilometre
        integer(section_int), intent(out) :: unit_code
        real(section_real), intent(out) :: factor
        integer(section_int), intent(out), optional :: status
        integer(section_int) :: value_count, err
        call begin()
        unit_code = 0
        factor = 0
        value_count = 0
        call getfieldcount(catalogue, section_type, value_count, err)
        ! The library raises a C++ exception for others, which would end the program.
        if (value >= 1 .and. value <= value_count) then
            call getunitforfieldandconvfact(catalogue, section_type, value - 1_section_int, unit, unit_code, &
                                            factor, err)
        end if
        call tell(err, status)
    end subroutine get_value_unit

    !> The name of a value as its table has it, e.g. "IZ"; blank where there is no such value.
    subroutine get_value_name(catalogue, section_type, value, name, status)
        integer(section_int), intent(in) :: catalogue, section_type, value
        character(*), intent(out) :: name
        integer(section_int), intent(out), optional :: status
        integer(section_int) :: is_there, err
        call begin()
        name = ""
        call getvaluename(catalogue, section_type, value - 1_section_int, name, int(len(name), section_int), &
                          is_there, err)
        call pad(name)
        call tell(err, status)
    end subroutine get_value_name

    !> The unit of a value as it is printed where values are asked for in `unit`, e.g. "mm^4";
    !> blank where it has none.
    subroutine get_value_unit_label(catalogue, section_type, value, unit, label, status)
        integer(section_int), intent(in) :: catalogue, section_type, value, unit
        character(*), intent(out) :: label
        integer(section_int), intent(out), optional :: status
        integer(section_int) :: is_there, err
        call begin()
        label = ""
        call getvalueunit(catalogue, section_type, value - 1_section_int, unit, label, &
                          int(len(label), section_int), is_there, err)
        call pad(label)
        call tell(err, status)
    end subroutine get_value_unit_label
end module section_values
