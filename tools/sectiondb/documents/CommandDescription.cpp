#include "documents/CommandDescription.h"

#include <algorithm>

namespace dbsection {
namespace {

OptionDescription DescribeOption(const CLI::Option& option) {
    OptionDescription description{.names = {},
                                  .value = "",
                                  .help = option.get_description(),
                                  .isRequired = option.get_required(),
                                  .isRepeated = option.get_items_expected_max() > 1};
    if (option.nonpositional()) {
        for (const std::string& name : option.get_snames())
            description.names.push_back('-' + name);
        for (const std::string& name : option.get_lnames())
            description.names.push_back("--" + name);
    } else {
        description.names.push_back(option.get_name(true));
    }
    if (option.get_items_expected_max() > 0)
        description.value =
            option.get_option_text().empty() ? option.get_type_name() : option.get_option_text();
    return description;
}

} // namespace

CommandDescription Describe(const CLI::App& app, const std::string& name) {
    CommandDescription command{.name = name,
                               .help = app.get_description(),
                               .arguments = {},
                               .options = {},
                               .commands = {}};
    for (const CLI::Option* option : app.get_options())
        (option->nonpositional() ? command.options : command.arguments)
            .push_back(DescribeOption(*option));
    for (const CLI::App* child : app.get_subcommands([](const CLI::App*) { return true; }))
        command.commands.push_back(
            Describe(*child, name + (name.empty() ? "" : " ") + child->get_name()));
    return command;
}

std::vector<const CommandDescription*> WithAllCommands(const CommandDescription& command) {
    std::vector<const CommandDescription*> all{&command};
    for (const CommandDescription& child : command.commands)
        std::ranges::copy(WithAllCommands(child), std::back_inserter(all));
    return all;
}

} // namespace dbsection
