!> Settings, and what failed last, as part of section_catalogue.
module section_settings
    use section_arguments
    use section_engine
    implicit none
    private

    public :: set_catalogue_folder, set_user_table_file, set_settings_file, set_selection_file
    public :: set_password, set_user_section_file, get_last_message

contains

    !> The folder of the catalogue files; without it, that of the environment (SECTIONDB_FOLDER).
    subroutine set_catalogue_folder(folder)
        character(*), intent(in) :: folder
        call setprofiledbfolder(folder, trimmed(folder))
    end subroutine set_catalogue_folder

    !> The file of generic shapes (catalogue 1010), whatever the name says: so do engines count on it.
    subroutine set_user_table_file(file)
        character(*), intent(in) :: file
        call setusertablefilename(file, trimmed(file))
    end subroutine set_user_table_file

    !> The settings file.
    subroutine set_settings_file(file)
        character(*), intent(in) :: file
        call setinifilename(file, trimmed(file))
    end subroutine set_settings_file

    !> Has no effect: the library takes its file of selections from elsewhere (SECTIONDB_DBI).
    subroutine set_selection_file(file)
        character(*), intent(in) :: file
        call setdbifilename(file, trimmed(file))
    end subroutine set_selection_file

    !> The password of the protected catalogues that are opened from now on.
    subroutine set_password(password, status)
        character(*), intent(in) :: password
        integer(section_int), intent(out), optional :: status
        integer(section_int) :: err
        call begin()
        call setsectionpassword(password, trimmed(password), err)
        call tell(err, status)
    end subroutine set_password

    !> The file of the user tables (catalogue 1001).
    subroutine set_user_section_file(file)
        character(*), intent(in) :: file
        call setusersectionfilename(file, trimmed(file))
    end subroutine set_user_section_file

    !> What failed in the call before and why; blank where nothing did.
    subroutine get_last_message(message)
        character(*), intent(out) :: message
        integer(section_int) :: full_length, err
        message = ""
        call getsectionmessage(message, int(len(message), section_int), full_length, err)
        call pad(message)
    end subroutine get_last_message
end module section_settings
