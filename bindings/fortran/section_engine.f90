!> The entry points of the section library as they are: every argument by reference, every text
!> followed by its length by value. Programs use section_catalogue, which is built on them.
module section_engine
    use, intrinsic :: iso_c_binding, only: c_char, c_float, c_int32_t, c_ptr
    implicit none
    private

    public :: setusertablefilename, setprofiledbfolder, setinifilename, setdbifilename
    public :: opensectiondatabase, closesectiondatabase, closesectionrecordset
    public :: issectiondatabasecustomized, terminatedaosession, getsectioncount, getfieldcount
    public :: getfirstsection, getnextsection, getprevsection, getlastsection
    public :: getsection, getsectiontypefromvessaname, getcastellatedrootbeamsection
    public :: getsteeljoist, getjoistgirder, getaluminiummaterialproperty
    public :: getsortedsections, getlikesortedsections, getrangesortedsections, getassignsections
    public :: getkseriessteeljoists, getkcsseriessteeljoists, getlhseriessteeljoists
    public :: getdlhseriessteeljoists, getjoistgirders
    public :: findlhseriesloadtype, finddlhseriesloadtype, getunitforfieldandconvfact
    public :: setsectionpassword, setusersectionfilename, getopencatalogue
    public :: getvaluename, getvalueunit, resetsectionstatus, getsectionmessage

    ! Each is written out, those with the same arguments too: gfortran 12 forgets that a length goes
    ! by value in a procedure declared from a shared interface.
    interface
        subroutine setusertablefilename(text, text_length) bind(C, name="SETUSERTABLEFILENAME")
            import :: c_char, c_int32_t
            character(kind=c_char), intent(in) :: text(*)
            integer(c_int32_t), value :: text_length
        end subroutine setusertablefilename

        subroutine setprofiledbfolder(text, text_length) bind(C, name="SETPROFILEDBFOLDER")
            import :: c_char, c_int32_t
            character(kind=c_char), intent(in) :: text(*)
            integer(c_int32_t), value :: text_length
        end subroutine setprofiledbfolder

        subroutine setinifilename(text, text_length) bind(C, name="SETINIFILENAME")
            import :: c_char, c_int32_t
            character(kind=c_char), intent(in) :: text(*)
            integer(c_int32_t), value :: text_length
        end subroutine setinifilename

        subroutine setdbifilename(text, text_length) bind(C, name="SETDBIFILENAME")
            import :: c_char, c_int32_t
            character(kind=c_char), intent(in) :: text(*)
            integer(c_int32_t), value :: text_length
        end subroutine setdbifilename

        subroutine opensectiondatabase(catalogue, err) bind(C, name="OPENSECTIONDATABASE")
            import :: c_int32_t
            integer(c_int32_t), intent(in) :: catalogue
            integer(c_int32_t), intent(out) :: err
        end subroutine opensectiondatabase

        subroutine closesectiondatabase(err) bind(C, name="CLOSESECTIONDATABASE")
            import :: c_int32_t
            integer(c_int32_t), intent(out) :: err
        end subroutine closesectiondatabase

        subroutine closesectionrecordset(slot, err) bind(C, name="CLOSESECTIONRECORDSET")
            import :: c_int32_t
            integer(c_int32_t), intent(in) :: slot
            integer(c_int32_t), intent(out) :: err
        end subroutine closesectionrecordset

        subroutine issectiondatabasecustomized(catalogue, customized, err) &
            bind(C, name="ISSECTIONDATABASECUSTOMIZED")
            import :: c_int32_t
            integer(c_int32_t), intent(in) :: catalogue
            integer(c_int32_t), intent(out) :: customized, err
        end subroutine issectiondatabasecustomized

        subroutine terminatedaosession() bind(C, name="TERMINATEDAOSESSION")
        end subroutine terminatedaosession

        subroutine getsectioncount(catalogue, section_type, number, err) &
            bind(C, name="GETSECTIONCOUNT")
            import :: c_int32_t
            integer(c_int32_t), intent(in) :: catalogue, section_type
            integer(c_int32_t), intent(inout) :: number
            integer(c_int32_t), intent(out) :: err
        end subroutine getsectioncount

        subroutine getfieldcount(catalogue, section_type, number, err) bind(C, name="GETFIELDCOUNT")
            import :: c_int32_t
            integer(c_int32_t), intent(in) :: catalogue, section_type
            integer(c_int32_t), intent(inout) :: number
            integer(c_int32_t), intent(out) :: err
        end subroutine getfieldcount

        subroutine getfirstsection(slot, name, name_length, values, status, err) &
            bind(C, name="GETFIRSTSECTION")
            import :: c_char, c_float, c_int32_t
            integer(c_int32_t), intent(in) :: slot
            character(kind=c_char), intent(inout) :: name(*)
            integer(c_int32_t), value :: name_length
            real(c_float), intent(inout) :: values(*)
            integer(c_int32_t), intent(out) :: status, err
        end subroutine getfirstsection

        subroutine getnextsection(slot, name, name_length, values, status, err) &
            bind(C, name="GETNEXTSECTION")
            import :: c_char, c_float, c_int32_t
            integer(c_int32_t), intent(in) :: slot
            character(kind=c_char), intent(inout) :: name(*)
            integer(c_int32_t), value :: name_length
            real(c_float), intent(inout) :: values(*)
            integer(c_int32_t), intent(out) :: status, err
        end subroutine getnextsection

        subroutine getprevsection(slot, name, name_length, values, status, err) &
            bind(C, name="GETPREVSECTION")
            import :: c_char, c_float, c_int32_t
            integer(c_int32_t), intent(in) :: slot
            character(kind=c_char), intent(inout) :: name(*)
            integer(c_int32_t), value :: name_length
            real(c_float), intent(inout) :: values(*)
            integer(c_int32_t), intent(out) :: status, err
        end subroutine getprevsection

        subroutine getlastsection(slot, name, name_length, values, status, err) &
            bind(C, name="GETLASTSECTION")
            import :: c_char, c_float, c_int32_t
            integer(c_int32_t), intent(in) :: slot
            character(kind=c_char), intent(inout) :: name(*)
            integer(c_int32_t), value :: name_length
            real(c_float), intent(inout) :: values(*)
            integer(c_int32_t), intent(out) :: status, err
        end subroutine getlastsection

        subroutine getsection(catalogue, section_type, name, name_length, unit, values, rows, &
                              value_count, err) &
            bind(C, name="GETSECTION")
            import :: c_char, c_float, c_int32_t
            integer(c_int32_t), intent(in) :: catalogue, section_type, unit
            character(kind=c_char), intent(in) :: name(*)
            integer(c_int32_t), value :: name_length
            real(c_float), intent(inout) :: values(*)
            integer(c_int32_t), intent(out) :: rows, value_count, err
        end subroutine getsection

        subroutine getsectiontypefromvessaname(catalogue, section_type, name, name_length, unit, &
                                               values, rows, value_count, err) &
            bind(C, name="GETSECTIONTYPEFROMVESSANAME")
            import :: c_char, c_int32_t, c_ptr
            integer(c_int32_t), intent(in) :: catalogue, unit
            integer(c_int32_t), intent(inout) :: section_type, err ! written when found
            character(kind=c_char), intent(in) :: name(*)
            integer(c_int32_t), value :: name_length
            type(c_ptr), value :: values ! may be null
            integer(c_int32_t), intent(out) :: rows, value_count
        end subroutine getsectiontypefromvessaname

        subroutine getcastellatedrootbeamsection(catalogue, section_type, name, name_length, unit, &
                                                 values, rows, value_count, err) &
            bind(C, name="GETCASTELLATEDROOTBEAMSECTION")
            import :: c_char, c_float, c_int32_t
            integer(c_int32_t), intent(in) :: catalogue, unit
            integer(c_int32_t), intent(inout) :: section_type
            character(kind=c_char), intent(in) :: name(*)
            integer(c_int32_t), value :: name_length
            real(c_float), intent(inout) :: values(*)
            integer(c_int32_t), intent(out) :: rows, value_count, err
        end subroutine getcastellatedrootbeamsection

        subroutine getsteeljoist(catalogue, section_type, name, name_length, unit, values, rows, &
                                 value_count, err) &
            bind(C, name="GETSTEELJOIST")
            import :: c_char, c_float, c_int32_t
            integer(c_int32_t), intent(in) :: catalogue, section_type, unit
            character(kind=c_char), intent(in) :: name(*)
            integer(c_int32_t), value :: name_length
            real(c_float), intent(inout) :: values(*)
            integer(c_int32_t), intent(out) :: rows, value_count, err
        end subroutine getsteeljoist

        subroutine getjoistgirder(catalogue, section_type, name, name_length, unit, values, &
                                  rows, value_count, err) &
            bind(C, name="GETJOISTGIRDER")
            import :: c_char, c_float, c_int32_t
            integer(c_int32_t), intent(in) :: catalogue, section_type, unit
            character(kind=c_char), intent(in) :: name(*)
            integer(c_int32_t), value :: name_length
            real(c_float), intent(inout) :: values(*)
            integer(c_int32_t), intent(out) :: rows, value_count, err
        end subroutine getjoistgirder

        subroutine getaluminiummaterialproperty(catalogue, section_type, name, name_length, &
                                                product, alclad, welded, thickness, unit, &
                                                source_unit, values, rows, value_count, err) &
            bind(C, name="GETALUMINIUMMATERIALPROPERTY")
            import :: c_char, c_float, c_int32_t
            integer(c_int32_t), intent(in) :: catalogue, section_type, product, alclad, welded
            integer(c_int32_t), intent(in) :: unit, source_unit
            character(kind=c_char), intent(in) :: name(*)
            integer(c_int32_t), value :: name_length
            real(c_float), intent(in) :: thickness
            real(c_float), intent(inout) :: values(*)
            integer(c_int32_t), intent(out) :: rows, value_count, err
        end subroutine getaluminiummaterialproperty

        subroutine getsortedsections(catalogue, section_type, keys, key_count, unit, rows, &
                                     value_count, err) bind(C, name="GETSORTEDSECTIONS")
            import :: c_int32_t
            integer(c_int32_t), intent(in) :: catalogue, section_type, key_count, unit
            integer(c_int32_t), intent(in) :: keys(key_count, *)
            integer(c_int32_t), intent(out) :: rows, value_count, err
        end subroutine getsortedsections

        subroutine getlikesortedsections(catalogue, section_type, keys, key_count, pattern, &
                                         pattern_length, unit, rows, value_count, err) &
            bind(C, name="GETLIKESORTEDSECTIONS")
            import :: c_char, c_int32_t
            integer(c_int32_t), intent(in) :: catalogue, section_type, key_count, unit
            integer(c_int32_t), intent(in) :: keys(key_count, *)
            character(kind=c_char), intent(in) :: pattern(*)
            integer(c_int32_t), value :: pattern_length
            integer(c_int32_t), intent(out) :: rows, value_count, err
        end subroutine getlikesortedsections

        subroutine getrangesortedsections(catalogue, section_type, keys, key_count, column, upper, &
                                          lower, unit, rows, value_count, err) &
            bind(C, name="GETRANGESORTEDSECTIONS")
            import :: c_float, c_int32_t
            integer(c_int32_t), intent(in) :: catalogue, section_type, key_count, column, unit
            integer(c_int32_t), intent(in) :: keys(key_count, *)
            real(c_float), intent(inout) :: upper, lower ! come back in the table's unit
            integer(c_int32_t), intent(out) :: rows, value_count, err
        end subroutine getrangesortedsections

        subroutine getassignsections(catalogue, section_type, name, name_length, unit, rows, &
                                     value_count, err) bind(C, name="GETASSIGNSECTIONS")
            import :: c_char, c_int32_t
            integer(c_int32_t), intent(in) :: catalogue, section_type, unit
            character(kind=c_char), intent(in) :: name(*)
            integer(c_int32_t), value :: name_length
            integer(c_int32_t), intent(out) :: rows, value_count, err
        end subroutine getassignsections

        subroutine getkseriessteeljoists(catalogue, series, span, total_load, live_load, unit, &
                                         rows, value_count, err) &
            bind(C, name="GETKSERIESSTEELJOISTS")
            import :: c_float, c_int32_t
            integer(c_int32_t), intent(in) :: catalogue, series, unit
            real(c_float), intent(in) :: span, total_load, live_load
            integer(c_int32_t), intent(out) :: rows, value_count, err
        end subroutine getkseriessteeljoists

        subroutine getkcsseriessteeljoists(catalogue, series, moment, shear, unit, rows, &
                                           value_count, err) bind(C, name="GETKCSSERIESSTEELJOISTS")
            import :: c_float, c_int32_t
            integer(c_int32_t), intent(in) :: catalogue, series, unit
            real(c_float), intent(in) :: moment, shear
            integer(c_int32_t), intent(out) :: rows, value_count, err
        end subroutine getkcsseriessteeljoists

        subroutine findlhseriesloadtype(catalogue, series, span, depth, load_type, err) &
            bind(C, name="FINDLHSERIESLOADTYPE")
            import :: c_float, c_int32_t
            integer(c_int32_t), intent(in) :: catalogue, series
            real(c_float), intent(in) :: span, depth
            integer(c_int32_t), intent(inout) :: load_type
            integer(c_int32_t), intent(out) :: err
        end subroutine findlhseriesloadtype

        subroutine finddlhseriesloadtype(catalogue, series, span, depth, load_type, err) &
            bind(C, name="FINDDLHSERIESLOADTYPE")
            import :: c_float, c_int32_t
            integer(c_int32_t), intent(in) :: catalogue, series
            real(c_float), intent(in) :: span, depth
            integer(c_int32_t), intent(inout) :: load_type
            integer(c_int32_t), intent(out) :: err
        end subroutine finddlhseriesloadtype

        subroutine getlhseriessteeljoists(catalogue, series, load_type, span, depth, load1, &
                                          load2, unit, rows, value_count, err) &
            bind(C, name="GETLHSERIESSTEELJOISTS")
            import :: c_float, c_int32_t
            integer(c_int32_t), intent(in) :: catalogue, series, load_type, unit
            real(c_float), intent(in) :: span, depth, load1, load2
            integer(c_int32_t), intent(out) :: rows, value_count, err
        end subroutine getlhseriessteeljoists

        subroutine getdlhseriessteeljoists(catalogue, series, load_type, span, depth, load1, &
                                           load2, unit, rows, value_count, err) &
            bind(C, name="GETDLHSERIESSTEELJOISTS")
            import :: c_float, c_int32_t
            integer(c_int32_t), intent(in) :: catalogue, series, load_type, unit
            real(c_float), intent(in) :: span, depth, load1, load2
            integer(c_int32_t), intent(out) :: rows, value_count, err
        end subroutine getdlhseriessteeljoists

        subroutine getjoistgirders(catalogue, series, span, joists, panel_load, depth, unit, rows, &
                                   value_count, err) bind(C, name="GETJOISTGIRDERS")
            import :: c_float, c_int32_t
            integer(c_int32_t), intent(in) :: catalogue, series, joists, unit
            real(c_float), intent(in) :: span, panel_load, depth
            integer(c_int32_t), intent(out) :: rows, value_count, err
        end subroutine getjoistgirders

        subroutine getunitforfieldandconvfact(catalogue, section_type, value_index, unit, unit_id, &
                                              factor, err) &
            bind(C, name="GETUNITFORFIELDANDCONVFACT")
            import :: c_float, c_int32_t
            integer(c_int32_t), intent(in) :: catalogue, section_type, value_index, unit
            integer(c_int32_t), intent(inout) :: unit_id
            real(c_float), intent(inout) :: factor
            integer(c_int32_t), intent(out) :: err
        end subroutine getunitforfieldandconvfact

        subroutine setsectionpassword(text, text_length, err) bind(C, name="SETSECTIONPASSWORD")
            import :: c_char, c_int32_t
            character(kind=c_char), intent(in) :: text(*)
            integer(c_int32_t), value :: text_length
            integer(c_int32_t), intent(out) :: err
        end subroutine setsectionpassword

        subroutine setusersectionfilename(text, text_length) &
            bind(C, name="SETUSERSECTIONFILENAME")
            import :: c_char, c_int32_t
            character(kind=c_char), intent(in) :: text(*)
            integer(c_int32_t), value :: text_length
        end subroutine setusersectionfilename

        subroutine getopencatalogue(catalogue, err) bind(C, name="GETOPENCATALOGUE")
            import :: c_int32_t
            integer(c_int32_t), intent(out) :: catalogue, err
        end subroutine getopencatalogue

        subroutine getvaluename(catalogue, section_type, value_index, text, text_length, status, &
                                err) bind(C, name="GETVALUENAME")
            import :: c_char, c_int32_t
            integer(c_int32_t), intent(in) :: catalogue, section_type, value_index
            character(kind=c_char), intent(inout) :: text(*)
            integer(c_int32_t), value :: text_length
            integer(c_int32_t), intent(out) :: status, err
        end subroutine getvaluename

        subroutine getvalueunit(catalogue, section_type, value_index, unit, text, text_length, &
                                status, err) bind(C, name="GETVALUEUNIT")
            import :: c_char, c_int32_t
            integer(c_int32_t), intent(in) :: catalogue, section_type, value_index, unit
            character(kind=c_char), intent(inout) :: text(*)
            integer(c_int32_t), value :: text_length
            integer(c_int32_t), intent(out) :: status, err
        end subroutine getvalueunit

        subroutine resetsectionstatus(err) bind(C, name="RESETSECTIONSTATUS")
            import :: c_int32_t
            integer(c_int32_t), intent(out) :: err
        end subroutine resetsectionstatus

        subroutine getsectionmessage(text, text_length, full_length, err) &
            bind(C, name="GETSECTIONMESSAGE")
            import :: c_char, c_int32_t
            character(kind=c_char), intent(inout) :: text(*)
            integer(c_int32_t), value :: text_length
            integer(c_int32_t), intent(out) :: full_length, err
        end subroutine getsectionmessage
    end interface
end module section_engine
