// What a command takes: arguments, by a name for the help, and options, by their signs.
//
//     line.Add("family", m_family, "Shape family, e.g. \"W Shape\"").Required();
//     line.Add("-o,--output", m_output, "Name of the file").Value("FILE");
//
// It stands between the commands and the parser, whose headers take long to compile.
#pragma once

#include <functional>
#include <string>

namespace CLI {
class App;
class Option;
} // namespace CLI

namespace dbsection {

/// The values live as long as the parser, which fills them in.
class CommandLine {
public:
    class Item {
    public:
        explicit Item(CLI::Option* option) : m_option(option) {}

        Item& Required();
        Item& Value(const char* name); ///< how the help calls it
        Item& Default(const char* value);
        Item& OneEach(); ///< of an option that may stand several times: one value behind each
        Item& Excludes(const Item& other);

    private:
        CLI::Option* m_option;
    };

    explicit CommandLine(CLI::App& app) : m_app(&app) {}

    /// The value is a text, which may be optional, a path or a number, or a vector of texts or
    /// paths.
    template <class Type>
    Item Add(const char* name, Type& value, const std::string& help);
    Item AddFlag(const char* name, bool& value, const std::string& help);

    /// Calls `take` with what is given.
    Item AddTaken(const char* name, const std::function<void(const std::string& text)>& take,
                  const std::string& help);

private:
    CLI::App* m_app;
};

} // namespace dbsection
