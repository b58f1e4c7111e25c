#include "faults/CatalogueReading.h"

#include "dataaccess/CCrack.h"
#include "faults/PublicCall.h"
#include "faults/World.h"
#include "interface/SectionDBInterface.h"

#include <memory>

using Facade = SectionDBInterface;

namespace faults {
namespace {

using Answers = std::vector<std::string>;

/// A failure without a kind is an answer as well: that there is nothing.
std::string Nothing() {
    const bool isTold = SectionLibraryState::GetExceptionType() != 0;
    SectionLibraryState::SetExceptionType(0);
    return isTold ? "" : "nothing";
}

std::string RowsOf(const char* name) {
    const CString sql = CString("Select * From [") + name + "] ORDER BY 2";
    if (openRecordset(&db, &rows, sql, 4, 0) != 1)
        return Nothing();
    std::string text = "rows ";
    for (; !rows->IsEOF(); rows->MoveNext())
        for (int column = 0; column < rows->GetFieldCount(); ++column)
            text += std::string(CCrack::strVARIANT(rows->GetFieldValue(column))) + ";";
    closeRecordset(&rows);
    return text;
}

std::string TypesOf(const char* name) {
    CUIntArray types;
    return Facade::GetSectionTypeFromVessaName(American, name, types) == 1 ? Tell(types)
                                                                           : Nothing();
}

std::string SummaryOf(const char* name) {
    int type = 0;
    void* record = Facade::GetSectionStructProperty(American, name, type, 1004, 2005, "");
    if (record == nullptr)
        return Nothing();
    const auto* info = dynamic_cast<SECTIONINFO*>(static_cast<SectionRecord*>(record));
    std::string text = Tell(type, info->VessaName, info->Area, info->MajorInertia);
    Facade::FreeSectionData(record);
    return text;
}

void ReadFamily(int type, Answers& answers) {
    const std::unique_ptr<CStringList> names(Facade::GetSectionNameList(American, type, 1));
    if (!names || names->IsEmpty()) {
        answers.push_back(Nothing());
        return;
    }
    std::string text;
    for (const CString& name : *names)
        text += std::string(name) + ";";
    const CString& last = *(names->end() - 1);
    for (const std::string& answer : {text, TypesOf(last), SummaryOf(last)})
        answers.push_back(answer);
}

} // namespace

std::vector<std::string> ReadCatalogue(const char* connect, std::span<const char* const> tables,
                                       std::span<const int> families) {
    Answers answers;
    SectionLibraryState::SetExceptionType(0);
    const bool isOpen = openDatabase(&db, "AISCSections.db3", 1, 0, 1, connect, nullptr) == 1;
    if (!isOpen)
        answers.push_back(Nothing());
    for (const char* name : tables)
        if (isOpen)
            answers.push_back(RowsOf(name));
    closeDatabase(&db, 1);
    for (const int type : families)
        ReadFamily(type, answers);
    Facade::CloseGblSectionDBObject(1);
    terminateDAOEngine();
    return answers;
}

} // namespace faults
