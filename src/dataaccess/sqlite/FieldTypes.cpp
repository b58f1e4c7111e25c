#include "dataaccess/sqlite/FieldTypes.h"

#include "dataaccess/sqlite/EngineError.h"
#include "dataaccess/sqlite/SqlText.h"
#include "platform/Text.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace dbsection {
namespace {

using namespace SectionField;

struct DeclaredType {
    std::int16_t type;
    std::string_view word;        ///< first word of a declaration that is read
    std::string_view declaration; ///< as it is written; its affinity keeps values as they are
    std::string_view cast;
    std::int32_t size;
};

// The first entry of a type is the one that is written.
constexpr std::array DeclaredTypes{
    DeclaredType{Boolean, "BOOLEAN", "BOOLEAN", "", 1},
    DeclaredType{Byte, "BYTE", "BYTE", "INTEGER", 1},
    DeclaredType{Integer, "SMALLINT", "SMALLINT", "INTEGER", 2},
    DeclaredType{Long, "INTEGER", "INTEGER", "INTEGER", 4},
    DeclaredType{Long, "LONG", "LONG", "INTEGER", 4},
    DeclaredType{Long, "INT", "INT", "INTEGER", 4},
    DeclaredType{Currency, "CURRENCY", "CURRENCY", "", 8},
    DeclaredType{Single, "SINGLE", "SINGLE", "REAL", 4},
    DeclaredType{Double, "DOUBLE", "DOUBLE", "REAL", 8},
    DeclaredType{Double, "REAL", "REAL", "REAL", 8},
    DeclaredType{Date, "DATE", "DATE", "", 8},
    DeclaredType{Text, "TEXT", "TEXT", "TEXT", 255},
    DeclaredType{Text, "VARCHAR", "VARCHAR", "TEXT", 255},
    DeclaredType{LongBinary, "BLOB", "BLOB", "", 0},
    DeclaredType{Memo, "MEMO", "MEMO TEXT", "TEXT", 0},
    DeclaredType{Guid, "GUID", "GUID TEXT", "TEXT", 16},
};

const DeclaredType* FindByWord(std::string_view declaredType) {
    const std::string_view word = declaredType.substr(0, declaredType.find_first_of(" ("));
    const auto matches = [word](const DeclaredType& type) { return EqualNoCase(type.word, word); };
    const auto place = std::ranges::find_if(DeclaredTypes, matches);
    return place == DeclaredTypes.end() ? nullptr : &*place;
}

/// A constraint that tells its name where it is broken.
std::string Check(std::string_view name, std::string_view condition) {
    const std::string constraint = name.empty() ? "" : " CONSTRAINT " + Quoted(name);
    return constraint + " CHECK (" + std::string(condition) +
           "\n)"; // behind a comment at the condition's end
}

std::string Checks(const CSectionFieldInfo& field) {
    const std::string name(field.m_strName.View());
    const bool isText = field.m_nType == Text || field.m_nType == Memo;
    std::string checks;
    if (isText && field.m_bAllowZeroLength == 0)
        checks += Check(name + " must not be empty", NotEmptyCondition(name));
    if (!field.m_strValidationRule.IsEmpty())
        checks += Check(field.m_strValidationText.View(), field.m_strValidationRule.View());
    return checks;
}

const DeclaredType* FindByType(std::int16_t type) {
    const auto place = std::ranges::find(DeclaredTypes, type, &DeclaredType::type);
    return place == DeclaredTypes.end() ? nullptr : &*place;
}

} // namespace

std::int16_t FieldTypeOf(std::string_view declaredType) {
    const DeclaredType* type = FindByWord(declaredType);
    return type == nullptr ? std::int16_t{0} : type->type;
}

std::int32_t FieldSizeOf(std::string_view declaredType) {
    const DeclaredType* type = FindByWord(declaredType);
    std::int32_t size = type == nullptr ? 0 : type->size;
    if (const auto open = declaredType.find('('); open != std::string_view::npos)
        std::from_chars(declaredType.data() + open + 1, declaredType.data() + declaredType.size(),
                        size);
    return size;
}

bool HasTextAffinity(std::string_view declaredType) {
    const std::string type = UpperCase(declaredType);
    const auto contains = [&type](const char* word) {
        return type.find(word) != std::string::npos;
    };
    return !contains("INT") && (contains("CHAR") || contains("CLOB") || contains("TEXT"));
}

std::string ColumnDefinition(const CSectionFieldInfo& field) {
    const DeclaredType* type = FindByType(field.m_nType);
    const std::string name(field.m_strName.View());
    if (type == nullptr)
        Fail(SectionError::WrongValueType, "Column \"" + name + "\": field type " +
                                               std::to_string(field.m_nType) +
                                               " is unknown; use one of the field type codes.");
    std::string definition = Quoted(name) + ' ';
    if ((field.m_lAttributes & AutoIncrement) != 0)
        return definition + "INTEGER PRIMARY KEY" + Checks(field);
    definition += type->declaration;
    if (field.m_nType == Text && field.m_lSize > 0 && field.m_lSize != type->size)
        definition += '(' + std::to_string(field.m_lSize) + ')';
    if (field.m_bRequired != 0)
        definition += " NOT NULL";
    if (!field.m_strDefaultValue.IsEmpty())
        definition += " DEFAULT " + Literal(field.m_strDefaultValue.View());
    return definition + Checks(field);
}

std::string NotEmptyCondition(std::string_view column) { return Quoted(column) + " <> ''"; }

std::string_view CastOf(std::int16_t type) {
    const DeclaredType* declared = FindByType(type);
    return declared == nullptr ? std::string_view() : declared->cast;
}

} // namespace dbsection
