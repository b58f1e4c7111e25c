// The sources of a catalogue with two pipes that are in order, of which a test spoils one file.
#pragma once

#include "TestSupport.h"

namespace testsupport {

class PipeSources {
public:
    PipeSources() {
        std::filesystem::create_directory(Path());
        Write("_catalogue.csv", "Key,Value\nTitle,Pipes\nStandard,ASME B36.10M\nSource,a note\n"
                                "Units,metric\n");
        Write("_tables.csv", "Table,Geometry,Parameters\nPipe,round tube,\n");
        Write("_tolerances.csv", "Table,Column,Percent\nPipe,AX,1\n");
        Write("_exceptions.csv", "Table,Name,Column,Reason\n");
        Write("Pipe.csv", "Name,VessaName,OD,T,AX\n"
                          "TEXT,TEXT,MM,MM,CM^2\n"
                          "P100,PIP100,100,10,28.3\n"
                          "P50,PIP50,50,5,7.07\n");
    }

    std::string Path() const { return m_folder.File("VenezuelanSections"); }
    std::string File(const std::string& name) const { return Path() + "/" + name; }
    void Write(const std::string& file, const std::string& text) const {
        WriteFile(File(file), text);
    }

private:
    TempFolder m_folder;
};

} // namespace testsupport
