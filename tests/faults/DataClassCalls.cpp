// The classes of the data-access layer. They throw: of memory exhaustion and of error numbers.
#include "faults/PublicCall.h"
#include "faults/World.h"

#include <array>
#include <optional>

namespace faults {
namespace {

constexpr const char* LongText = "a text beyond what a string keeps within itself";

const std::vector<std::string> Throws{"throws memory", "throws 3*"};

/// What writes rows: where it throws nothing was written.
PublicCall Writes(const char* name, std::function<void()> prepare, void (*write)(),
                  const std::string& after) {
    return Call(name, "done -> " + after,
                {std::string("throws memory -> ") + AllShapes,
                 std::string("throws 3* -> ") + AllShapes},
                write)
        .On(std::move(prepare))
        .Leaving(Shapes);
}

PublicCalls OfDatabases() {
    return {
        Call("CSectionDatabase::Open", "done", Throws,
             [] { db->Open("Shapes.db3", 0, 0, Connect()); })
            .On([] { db = new CSectionDatabase; }),
        Call("CSectionDatabase::GetUserTableNames", "2", Throws,
             [] { return static_cast<int>(db->GetUserTableNames().size()); })
            .On(OpenShapes),
        Call("CSectionDatabase::FindDamage", "0", Throws,
             [] { return static_cast<int>(db->FindDamage().size()); })
            .On(OpenShapes),
        Call("CSectionDatabase::GetTableDefCount", "2", Throws,
             [] { return int{db->GetTableDefCount()}; })
            .On(OpenShapes),
        Call("CSectionTableDef::GetFieldInfo", "AX", Throws,
             [] {
                 CSectionFieldInfo field;
                 Under([&] { table->GetFieldInfo("AX", field); });
                 return Tell(field.m_strName);
             })
            .On([] {
                OpenShapes();
                openTableDef(db, &table, "Shape");
            }),
        Call("CSectionTableDef::CreateIndex", "done", Throws,
             [] { table->CreateIndex("Names of shapes", "UPPER([VessaName])"); })
            .On([] {
                testsupport::WriteFile("Copy.db3", testsupport::ReadFile("Shapes.db3"));
                openDatabase(&db, "Copy.db3", 1, 0, 0, Connect(), nullptr);
                openTableDef(db, &table, "Shape");
            }),
    };
}

std::optional<CSectionWorkspace> workspace;

void OpenInWorkspace() {
    workspace.emplace();
    openDatabase(&db, "Shapes.db3", 1, 0, 0, Connect(), &*workspace);
}

/// A transaction that has deleted a row.
void OpenInTransaction() {
    OpenInWorkspace();
    openRecordset(&db, &rows, Ordered, 2, 0);
    workspace->BeginTrans();
    rows->Delete();
}

PublicCalls OfTransactions() {
    const std::string withoutA = "B B 2.000000e+00 C C 3.000000e+00";
    return {
        Call("CSectionWorkspace::BeginTrans", "done", Throws, [] { workspace->BeginTrans(); })
            .On(OpenInWorkspace),
        Writes(
            "CSectionWorkspace::CommitTrans", OpenInTransaction, [] { workspace->CommitTrans(); },
            withoutA),
        Writes(
            "CSectionWorkspace::Rollback", OpenInTransaction, [] { workspace->Rollback(); },
            AllShapes),
    };
}

PublicCalls OfRows() {
    return {
        Call("CSectionRecordset::Requery", "done", Throws, [] { rows->Requery(); }).On(OpenOrdered),
        Call("CSectionRecordset::Find", "1", Throws,
             [] { return rows->Find(CSectionRecordset::FindLast, "[AX] < 3"); })
            .On(OpenOrdered),
        Call("CSectionRecordset::GetFieldValue", LongText, Throws,
             [] {
                 const COleVariant value = Under([] { return rows->GetFieldValue(0); });
                 return Tell(value.strVal);
             })
            .On([] {
                OpenRows("Select 'a text beyond what a string keeps within itself' From Shape");
            }),
        Call("CSectionRecordset::GetFieldNumbers", "0 1", Throws,
             [] {
                 std::array<double, 2> numbers{};
                 Under([&] { rows->GetFieldNumbers(2, numbers); });
                 return Tell(numbers[0], numbers[1]);
             })
            .On(OpenOrdered),
        Writes(
            "CSectionRecordset::AddNew to Update", OpenOrdered,
            [] {
                rows->AddNew();
                rows->SetFieldValue(1, LongText);
                rows->SetFieldValue(3, COleVariant(4.0));
                rows->Update();
            },
            std::string(AllShapes) + " " + LongText + " NULL 4.000000e+00"),
        Writes(
            "CSectionRecordset::Edit to Update", OpenOrdered,
            [] {
                rows->Edit();
                rows->SetFieldValue(2, "other");
                rows->Update();
            },
            "A other 1.000000e+00 B B 2.000000e+00 C C 3.000000e+00"),
        Writes(
            "CSectionRecordset::Delete", OpenOrdered, [] { rows->Delete(); },
            "B B 2.000000e+00 C C 3.000000e+00"),
    };
}

} // namespace

PublicCalls DataClassCalls() { return AllOf({OfDatabases(), OfTransactions(), OfRows()}); }

} // namespace faults
