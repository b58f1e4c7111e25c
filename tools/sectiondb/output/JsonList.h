// The members of a JSON object, or the elements of an array, one after another.
#pragma once

#include "output/Escapes.h"

#include <string>
#include <string_view>

namespace dbsection {

class JsonList {
public:
    void Add(std::string_view item) {
        m_text.append(m_separator).append(item);
        m_separator = ", ";
    }
    void AddMember(std::string_view name, std::string_view value) {
        Add(JsonText(name).append(": ").append(value));
    }

    std::string Object() const { return '{' + m_text + '}'; }
    std::string Array() const { return '[' + m_text + ']'; }

private:
    std::string m_text;
    const char* m_separator = "";
};

} // namespace dbsection
