#include "commands/Command.h"
#include "commands/Options.h"
#include "records/SectionLayout.h"

#include <array>

namespace dbsection {
namespace {

std::string NameOf(Quantity quantity) {
    constexpr std::array names{"text",    "number",  "angle",   "length", "area",
                               "modulus", "inertia", "warping", "stress", "weight per length"};
    return names[static_cast<std::size_t>(quantity)];
}

class Layouts : public Command {
    void Declare(CommandLine& line) override { m_form.Declare(line); }

    void Run() const override {
        Table table({{"layout"}, {"column"}, {"quantity"}, {"meaning"}, {"remark"}});
        for (const SectionLayout& layout : GetSectionLayouts())
            for (const LayoutColumn& column : layout.columns)
                table.rows.push_back({layout.name, column.name, NameOf(column.quantity),
                                      column.meaning,
                                      column.isAdded ? "since layout version 2" : ""});
        Print(table, m_form.Form());
    }

    FormOptions m_form;
};

const CommandEntry entry("layouts", "Tell what the columns of section tables mean", Make<Layouts>);

} // namespace
} // namespace dbsection
