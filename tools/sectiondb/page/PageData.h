// What the page knows of catalogues: the JSON that its script reads (page/data.js).
#pragma once

#include "files/SectionColumns.h"
#include "output/JsonList.h"
#include "sections/Catalogue.h"

#include <functional>
#include <span>
#include <string>
#include <vector>

namespace dbsection {

class PageData {
public:
    /// `advance` is called once a section.
    explicit PageData(std::function<void()> advance) : m_advance(std::move(advance)) {}

    void Add(const sections::Catalogue& catalogue, bool isProtected);

    std::string Json() const;

private:
    std::string FamilyJson(const sections::Family& family);
    std::string ColumnJson(const sections::Family& family, std::span<const SectionColumn> columns,
                           std::size_t place);
    std::size_t UnitPlace(const std::string& stored);

    JsonList m_catalogues;
    std::vector<std::string> m_units; ///< as they are stored, those that occur
    std::function<void()> m_advance;
};

} // namespace dbsection
