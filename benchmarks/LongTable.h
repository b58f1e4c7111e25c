// An American catalogue whose W shapes are as many as one wants.
#pragma once

#include "Catalogues.h"

#include <string>

namespace sectionbench {

class LongTable {
public:
    LongTable(const Catalogues& catalogues, int count);

    std::string Folder() const { return m_folder.Path(); }
    std::string Path() const { return m_folder.File(Catalogues::FileName); }
    int Count() const { return m_count; }

    /// The name of a row, counted from 1.
    static std::string NameOf(int row) { return "V" + std::to_string(row); }

private:
    testsupport::TempFolder m_folder;
    int m_count;
};

} // namespace sectionbench
