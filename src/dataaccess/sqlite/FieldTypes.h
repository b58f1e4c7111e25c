// Field types, the declared column types that stand for them, and their values.
#pragma once

#include "dataaccess/CSectionFieldInfo.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace dbsection {

/// The field type of a declared column type such as "VARCHAR(40)", or 0.
std::int16_t FieldTypeOf(std::string_view declaredType);

/// The size that a declared type carries, or the size of its values in bytes.
std::int32_t FieldSizeOf(std::string_view declaredType);

/// Whether the engine stores what it can as texts in a column of that declared type.
bool HasTextAffinity(std::string_view declaredType);

/// The column definition of a CREATE TABLE or ALTER TABLE statement. A field of unknown type is
/// refused. The text of a rule is the name of its constraint, which the engine tells when it is
/// broken.
std::string ColumnDefinition(const CSectionFieldInfo& field);

/// The CHECK condition of a text column that takes no empty text.
std::string NotEmptyCondition(std::string_view column);

/// The type name of a CAST that gives a value the field type's affinity, or empty.
std::string_view CastOf(std::int16_t type);

} // namespace dbsection
