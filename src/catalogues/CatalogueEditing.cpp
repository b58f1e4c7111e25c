// Adding and changing the sections of a table.
#include "catalogues/CatalogueSectionDB.h"

#include "catalogues/SectionTables.h"
#include "dataaccess/CSectionException.h"
#include "dataaccess/DatabaseTransaction.h"
#include "dataaccess/Guard.h"
#include "dataaccess/NameSearch.h"
#include "platform/MessageBox.h"
#include "records/SectionNames.h"

#include <algorithm>
#include <cmath>
#include <string>

using dbsection::Operation;

namespace {

/// Whether another row of the table has the section's public name.
bool IsNameTaken(CSectionDatabase* database, const CString& table, const CString& name,
                 const CString& otherThan) {
    CSectionRecordset rows(database);
    rows.Open(CSectionRecordset::Snapshot,
              "Select * From [" + table + "] WHERE [Name] = '" + name + "'" + otherThan);
    return !rows.IsEOF();
}

/// A section that lacks a property, or has one that is no number, would be read as another section.
void RequireComplete(const SECTIONINFO& section, LayoutId layout, const CString& table) {
    const auto& columns = GetSectionLayout(layout).columns;
    const auto isText = [](const LayoutColumn& column) {
        return column.quantity == Quantity::Text;
    };
    const auto texts = std::ranges::count_if(columns, isText);
    const auto numbers = std::ssize(columns) - texts;
    const auto least = numbers - std::ranges::count_if(columns, &LayoutColumn::isAdded);
    const auto given = std::ssize(section.Values);
    const auto isFinite = [](double value) { return std::isfinite(value); };
    if (given >= least && given <= numbers && std::ranges::all_of(section.Values, isFinite) &&
        (section.Texts.empty() || std::ssize(section.Texts) == texts))
        return;
    const std::string counts =
        std::to_string(numbers) + " numbers and " + std::to_string(texts) + " texts";
    throw new CSectionException(SectionError::WrongValueType,
                                "The section \"" + section.PublicName + "\" does not have the " +
                                    counts.c_str() + " of table \"" + table + "\".");
}

void SetFields(CSectionRecordset& row, WORD id, const SECTIONINFO& section, LayoutId layout) {
    row.SetFieldValue(IdentifierColumn, COleVariant(static_cast<std::int32_t>(id)));
    row.SetFieldValue(NameColumn, section.PublicName);
    row.SetFieldValue(VessaNameColumn, section.VessaName);
    int field = BookkeepingColumns;
    auto value = section.Values.begin();
    auto text = section.Texts.begin();
    const auto present = static_cast<std::size_t>(dbsection::CountPresentColumns(row, layout));
    for (const LayoutColumn& column : GetSectionLayout(layout).columns.first(present)) {
        const bool isText = column.quantity == Quantity::Text;
        if (isText && text != section.Texts.end())
            row.SetFieldValue(field, *text++);
        if (!isText && value != section.Values.end()) {
            // A strength of 0 is one that is not published.
            const bool isKnown = *value != 0 || column.quantity != Quantity::Stress;
            row.SetFieldValue(field, isKnown ? COleVariant(*value) : COleVariant::Null());
            ++value;
        }
        ++field;
    }
}

} // namespace

int CatalogueSectionDB::AddSectionData(WORD id, SECTIONINFO* record) {
    return Operation("AddSectionData()", [&] {
        return StoreSection("AddSectionData()", "Failed to add record.", id, record, true);
    });
}

int CatalogueSectionDB::UpdateSectionData(WORD id, SECTIONINFO* record) {
    return Operation("UpdateSectionData()", [&] {
        return StoreSection("UpdateSectionData()", "Failed to update record.", id, record, false);
    });
}

int CatalogueSectionDB::StoreSection(const char* label, const char* message, WORD id,
                                     const SECTIONINFO* record, bool isNew) {
    InitSectionRecords();
    if (OpenSectionDatabase() != 1 || m_szTableName.IsEmpty())
        return 0;
    const SectionFamily* family = EditedFamily(m_szTableName);
    if (id == 0 && family != nullptr) {
        dbsection::ShowMessageBox("Record numbers go from 1 to 65535. Record not saved.",
                                  DuplicateCaption(*family));
        return 0;
    }
    CString captionOfTaken;
    const int result = dbsection::Guarded({label, message}, [&] {
        // Nobody can take the name, or change the row, between the look and the write.
        dbsection::DatabaseTransaction transaction(*m_pDatabase, dbsection::Purpose::OneWrite);
        const CString row = CString(std::to_string(id));
        const CString sql = "Select * From [" + m_szTableName + "]";
        if (OpenSql(isNew ? sql : sql + " WHERE [ID] =" + row, CSectionRecordset::Dynaset) != 1 ||
            family == nullptr || !dbsection::IsSearchable(record->PublicName))
            return 0;
        RequireComplete(*record, family->layout, m_szTableName);
        const CString others = isNew ? CString() : " AND [ID] <> " + row;
        if (IsNameTaken(m_pDatabase, m_szTableName, record->PublicName, others)) {
            captionOfTaken = DuplicateCaption(*family);
            return 0;
        }
        isNew ? m_pRecordset->AddNew() : m_pRecordset->Edit();
        SetFields(*m_pRecordset, id, *record, family->layout);
        m_pRecordset->Update();
        transaction.Commit();
        return 1;
    });
    closeRecordset(&m_pRecordset);
    if (!captionOfTaken.IsEmpty()) // others are not kept waiting for an answer
        dbsection::ShowMessageBox(dbsection::DuplicateNameText, captionOfTaken);
    return result;
}
