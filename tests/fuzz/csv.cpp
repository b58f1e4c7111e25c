// Comma-separated sources: they are read as a plain reader reads them, and refused with a reason.
//
// The first line of the input names the file of the catalogue's sources that the rest replaces.
#include "Fuzz.h"

#include "sources/CatalogueSource.h"
#include "sources/CsvTable.h"

#include <optional>

namespace {

using Records = std::vector<std::vector<std::string>>;

/// A reader of one state and one character at a time; nothing where the text is malformed.
std::optional<Records> Read(std::string text) {
    if (text.starts_with("\xEF\xBB\xBF"))
        text.erase(0, 3);
    Records records;
    enum { FieldBegins, Plain, Quoted, QuoteInQuoted } state = FieldBegins;
    std::vector<std::string> fields;
    std::string field;
    const auto endField = [&] { fields.push_back(std::exchange(field, {})); };
    const auto endRecord = [&] {
        endField();
        records.push_back(std::exchange(fields, {}));
    };
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        const bool endsLine =
            c == '\n' || (c == '\r' && i + 1 < text.size() && text[i + 1] == '\n');
        if (state == Quoted) {
            if (c == '"')
                state = QuoteInQuoted;
            else
                field += c;
            continue;
        }
        if (state == QuoteInQuoted && c == '"') {
            field += c;
            state = Quoted;
        } else if (c == '"') {
            if (state != FieldBegins)
                return std::nullopt;
            state = Quoted;
        } else if (c == ',') {
            endField();
            state = FieldBegins;
        } else if (endsLine) {
            i += c == '\r' ? 1 : 0;
            endRecord();
            state = FieldBegins;
        } else if (state == QuoteInQuoted) {
            return std::nullopt;
        } else if (c == '\r' && i + 1 == text.size()) {
            state = Plain; // a line end cut off
        } else {
            field += c;
            state = Plain;
        }
    }
    if (state == Quoted)
        return std::nullopt;
    if (state != FieldBegins || !fields.empty())
        endRecord();
    return records;
}

void CompareWithPlainReader(const std::string& text) {
    try {
        const dbsection::CsvTable table("table.csv", text);
        const auto expected = Read(text);
        fuzz::Require(expected && expected->size() == table.Records().size() + 1,
                      "the records are those of a plain reader");
        for (std::size_t i = 0; i < table.Records().size(); ++i)
            fuzz::Require(table.Records()[i].fields == (*expected)[i + 1],
                          "the fields are those of a plain reader");
    } catch (const dbsection::SourceError& e) {
        fuzz::Require(std::string(e.what()).starts_with("table.csv"), "an error names its place");
    }
}

const std::string& Sources() {
    static const std::string folder = [] {
        for (const char* name : {"/VenezuelanSections", "/families"})
            std::filesystem::create_directory(fuzz::Folder().Path() + name);
        return fuzz::Folder().Path();
    }();
    return folder;
}

struct Source {
    const char* name;
    const char* text;
};

constexpr Source Whole[] = {
    {"families/pipes.csv",
     "Name,VessaName,Alias,OD,T,AX\nTEXT,TEXT,TEXT,MM,MM,CM^2\nP100,PIP100,~P 100,100,10,28.3\n"},
    {"families/_families.csv", "Family,Geometry,Parameters,Standard,Remark,NameSizes\n"
                               "pipes,round tube,,ASME B36.10M,a pipe,OD\n"},
    {"families/_tolerances.csv", "Family,Column,Percent,Reason\n"},
    {"families/_exceptions.csv", "Family,Name,Column,Percent,Reason\n"},
    {"families/_corrections.csv", "Family,Name,Column,Printed,Kept,Reason\n"},
    {"VenezuelanSections/_catalogue.csv", "Key,Value\nTitle,Pipes\nSource,a note\nUnits,metric\n"},
    {"VenezuelanSections/_tables.csv", "Table,Families\nPipe,pipes\n"},
};

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::string_view input = fuzz::AsText(data, size);
    const std::string replaced = fuzz::TakeLine(input);
    CompareWithPlainReader(std::string(input));
    for (const Source& source : Whole)
        testsupport::WriteFile(Sources() + "/" + source.name,
                               replaced == source.name ? input : source.text);
    try {
        dbsection::CatalogueSource::Load(Sources() + "/VenezuelanSections");
    } catch (const dbsection::SourceError&) {
        return 0; // refused, with its reason
    }
    return 0;
}
