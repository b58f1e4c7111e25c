#include "files/CatalogueBuilder.h"

#include "dataaccess/CSectionDatabase.h"
#include "dataaccess/CSectionRecordset.h"
#include "files/Password.h"
#include "files/TableChecksum.h"
#include "output/Messages.h"

#include <algorithm>
#include <fmt/format.h>
#include <span>

namespace dbsection {
namespace {

CSectionFieldInfo MakeField(const std::string& name, SectionField::Type type, bool required) {
    CSectionFieldInfo field;
    field.m_strName = CString(name);
    field.m_nType = type;
    field.m_bRequired = required ? 1 : 0;
    return field;
}

class CatalogueWriter {
public:
    CatalogueWriter(const CatalogueSource& source, const std::function<void()>& advance)
        : m_source(source),
          m_advance(advance) {}

    void Write(const BuildTarget& target, const std::string& connect) {
        m_database.Create(target.Temporary().c_str(), connect.c_str());
        target.TakeOverPermissions();
        m_workspace.BeginTrans();
        for (const SourceTable& table : m_source.tables)
            WriteTable(table, m_advance);
        for (const SourceTable& table : m_source.hidden)
            WriteTable(table, [] {});
        WriteFieldUnits();
        WriteInformation();
        m_workspace.CommitTrans();
        m_database.Close();
    }

private:
    void CreateTable(const std::string& name, std::span<const CSectionFieldInfo> fields,
                     std::span<const SourceIndex> indexes = {}) {
        CSectionTableDef table(&m_database);
        table.Create(name.c_str());
        for (const CSectionFieldInfo& field : fields)
            table.CreateField(field);
        table.Append();
        for (const auto& [columns, isUnique] : indexes)
            table.CreateIndex(fmt::format("{} by {}", name, columns).c_str(), columns.c_str(),
                              isUnique);
    }

    void WriteTable(const SourceTable& table, const std::function<void()>& advance) {
        std::vector<CSectionFieldInfo> fields;
        for (const SourceColumn& column : table.columns) {
            fields.push_back(MakeField(column.name, column.type, column.isRequired));
            if (column.isIdentifier)
                fields.back().m_lAttributes = SectionField::AutoIncrement;
        }
        CreateTable(table.name, fields, table.indexes);

        CSectionRecordset rows(&m_database);
        rows.Open(CSectionRecordset::Table, table.name.c_str());
        for (const SourceRow& row : table.rows) {
            WriteRow(rows, row, table.columns.front().isIdentifier ? 1 : 0);
            advance();
        }
    }

    /// `first` is the column of the row's first value.
    static void WriteRow(CSectionRecordset& rows, const SourceRow& row, int first) {
        rows.AddNew();
        int column = first;
        for (const SourceValue& value : row) {
            if (const auto* number = std::get_if<double>(&value))
                rows.SetFieldValue(column, COleVariant(*number));
            else if (const auto* text = std::get_if<std::string>(&value))
                rows.SetFieldValue(column, text->c_str());
            ++column;
        }
        rows.Update();
    }

    void WriteFieldUnits() {
        std::size_t columns = 0;
        for (const SourceTable& table : m_source.tables)
            columns = std::max(columns, table.columns.size());
        std::vector<CSectionFieldInfo> fields{MakeField("TableName", SectionField::Text, true)};
        fields.reserve(columns + 1);
        for (std::size_t i = 0; i < columns; ++i)
            fields.push_back(MakeField(fmt::format("Unit{}", i), SectionField::Text, false));
        CreateTable("Field Units", fields);

        CSectionRecordset rows(&m_database);
        rows.Open(CSectionRecordset::Table, "Field Units");
        for (const SourceTable& table : m_source.tables) {
            rows.AddNew();
            rows.SetFieldValue(0, table.name.c_str());
            for (std::size_t i = 0; i < table.columns.size(); ++i)
                rows.SetFieldValue(static_cast<int>(i) + 1, table.columns[i].unit.c_str());
            rows.Update();
        }
    }

    void WriteInformation() {
        struct Item {
            const char* column;
            std::string value;
        };
        const std::vector<Item> items{{"Title", m_source.title},
                                      {"Standard", m_source.standard},
                                      {"Source", m_source.sourceNote},
                                      {"LayoutVersion", std::to_string(CatalogueLayoutVersion)},
                                      {"SourceHash", m_source.sourceHash}};
        // What follows from text sources stays as it is: a later change shows.
        const std::string checksums = m_source.sourceHash.empty() ? "" : ChecksumsOf(m_database);
        const std::vector<Item> texts{{"Checksums", checksums}, {"Figures", m_source.figures}};
        std::vector<CSectionFieldInfo> fields;
        fields.reserve(items.size() + texts.size());
        for (const Item& item : items)
            fields.push_back(MakeField(item.column, SectionField::Text, true));
        for (const Item& text : texts)
            fields.push_back(MakeField(text.column, SectionField::Memo, false));
        CreateTable("DBInfo", fields);

        CSectionRecordset rows(&m_database);
        rows.Open(CSectionRecordset::Table, "DBInfo");
        rows.AddNew();
        int column = 0;
        for (const Item& item : items)
            rows.SetFieldValue(column++, item.value.c_str());
        for (const Item& text : texts) {
            if (!text.value.empty())
                rows.SetFieldValue(column, text.value.c_str());
            ++column;
        }
        rows.Update();
    }

    const CatalogueSource& m_source;
    const std::function<void()>& m_advance;
    CSectionWorkspace m_workspace;
    CSectionDatabase m_database{&m_workspace};
};

} // namespace

void BuildCatalogue(const CatalogueSource& source, const std::filesystem::path& path,
                    const std::string& password, const std::function<void()>& advance,
                    Existing existing) {
    const std::string connect = ConnectText(password);
    const BuildTarget target(path, existing);
    try {
        CatalogueWriter(source, advance).Write(target, connect);
    } catch (CException* e) {
        const CString message = e->GetMessage();
        e->Delete();
        throw CommandError(fmt::format("{}: not built: {}", path.string(), message.View()));
    }
    target.Keep(connect);
}

} // namespace dbsection
