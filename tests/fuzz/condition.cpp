// Conditions of find: a row is found where the engine finds one, and a condition is one expression.
#include "Shapes.h"
#include "platform/Text.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Shapes& shapes = fuzz::Shapes::Get();
    const std::string condition = fuzz::AsArgument(data, size);
    if (condition.empty())
        return 0;
    RecordsetHandle rows;
    fuzz::Require(openRecordset(shapes.database.Address(), rows.Address(), "Shape", 2, 0) == 1,
                  "the shapes open");
    int found = 0;
    const int error = testsupport::ErrorOf(
        [&] { found = rows->Find(CSectionRecordset::FindFirst, condition.c_str()); });
    fuzz::Require(IsExistentRecord(rows.Address(), condition.c_str()) == found,
                  "a row exists where one is found: " + condition);
    // The line end closes a comment; a parenthesis that the text closes itself leaves one too many.
    const auto expected =
        shapes.reference.CountRows("SELECT * FROM Shape WHERE (" + condition + "\n)");
    const auto alone = shapes.reference.CountRows("SELECT (" + condition + "\n) FROM Shape");
    if (error == 0 && expected && alone)
        fuzz::Require((*expected > 0) == (found == 1), "the engine finds a row: " + condition);
    if (error == 0 && found == 1)
        fuzz::Require(dbsection::UpperCase(condition).find("ID") != std::string::npos ||
                          (expected && alone),
                      "what is found satisfies one expression: " + condition);
    return 0;
}
