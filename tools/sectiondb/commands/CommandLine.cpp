#include "commands/CommandLine.h"

#include <CLI/App.hpp>
#include <filesystem>
#include <optional>
#include <vector>

namespace dbsection {

CommandLine::Item& CommandLine::Item::Required() {
    m_option->required();
    return *this;
}

CommandLine::Item& CommandLine::Item::Value(const char* name) {
    m_option->option_text(name);
    return *this;
}

CommandLine::Item& CommandLine::Item::Default(const char* value) {
    m_option->default_val(value);
    return *this;
}

CommandLine::Item& CommandLine::Item::OneEach() {
    m_option->allow_extra_args(false);
    return *this;
}

CommandLine::Item& CommandLine::Item::Excludes(const Item& other) {
    m_option->excludes(other.m_option);
    return *this;
}

template <class Type>
CommandLine::Item CommandLine::Add(const char* name, Type& value, const std::string& help) {
    return Item(m_app->add_option(name, value, help));
}

template CommandLine::Item CommandLine::Add(const char*, std::string&, const std::string&);
template CommandLine::Item CommandLine::Add(const char*, std::optional<std::string>&,
                                            const std::string&);
template CommandLine::Item CommandLine::Add(const char*, std::filesystem::path&,
                                            const std::string&);
template CommandLine::Item CommandLine::Add(const char*, double&, const std::string&);
template CommandLine::Item CommandLine::Add(const char*, std::vector<std::string>&,
                                            const std::string&);
template CommandLine::Item CommandLine::Add(const char*, std::vector<std::filesystem::path>&,
                                            const std::string&);

CommandLine::Item CommandLine::AddFlag(const char* name, bool& value, const std::string& help) {
    return Item(m_app->add_flag(name, value, help));
}

CommandLine::Item CommandLine::AddTaken(const char* name,
                                        const std::function<void(const std::string& text)>& take,
                                        const std::string& help) {
    return Item(m_app->add_option_function<std::string>(name, take, help));
}

} // namespace dbsection
