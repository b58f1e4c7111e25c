// The sources of a catalogue with two pipes that are in order, of which a test spoils one file.
#pragma once

#include "TestSupport.h"

namespace testsupport {

class PipeSources {
public:
    PipeSources() {
        std::filesystem::create_directory(Path());
        std::filesystem::create_directory(File("families"));
        Write("VenezuelanSections/_catalogue.csv",
              "Key,Value\nTitle,Pipes\nSource,a note\nUnits,metric\n");
        Write("VenezuelanSections/_tables.csv", "Table,Families\nPipe,pipes\n");
        Write("families/_families.csv",
              std::string(FamiliesHeader) + "pipes,round tube,,ASME B36.10M,Two of them,\n");
        Write("families/_tolerances.csv", "Family,Column,Percent,Reason\n");
        Write("families/_exceptions.csv", "Family,Name,Column,Percent,Reason\n");
        Write("families/_corrections.csv", "Family,Name,Column,Printed,Kept,Reason\n");
        Write("families/pipes.csv", "Name,VessaName,OD,T,AX\n"
                                    "TEXT,TEXT,MM,MM,CM^2\n"
                                    "P100,PIP100,100,10,28.3\n"
                                    "P50,PIP50,50,5,7.07\n");
    }

    static constexpr const char* FamiliesHeader =
        "Family,Geometry,Parameters,Standard,Remark,NameSizes\n";

    std::string Path() const { return File("VenezuelanSections"); }
    std::string File(const std::string& name) const { return m_folder.File(name); }
    void Write(const std::string& file, const std::string& text) const {
        WriteFile(File(file), text);
    }

private:
    TempFolder m_folder;
};

} // namespace testsupport
