// The engine's entry points as the tests call them: values for references, results together.
#pragma once

#include "FacadeSupport.h"
#include "engine/SectionEngine.h"

#include <array>
#include <string>
#include <tuple>

namespace testsupport {

/// What an entry point wrote. Values that it left alone stay -1, other results -7.
struct EngineAnswer {
    std::string name;
    std::array<float, 17> values{};
    std::int32_t status = -7;
    std::int32_t count = -7;
    std::int32_t valueCount = -7;
    std::int32_t type = -7;
    std::int32_t err = -7;

    EngineAnswer() { values.fill(-1); }
};

class EngineCallTest : public FacadeTest {
protected:
    static constexpr std::int32_t Inch = 1001;
    static constexpr std::int32_t Millimetre = 1004;
    static constexpr std::int32_t AsStored = 0;

    ~EngineCallTest() override {
        std::int32_t err = 0;
        CLOSESECTIONDATABASE(&err);
        TERMINATEDAOSESSION();
    }

    /// An argument as the engine passes it: numbers by address, texts with their length.
    template <class Item>
    static auto Passed(const Item& item) {
        if constexpr (std::is_convertible_v<Item, std::string_view> &&
                      !std::is_null_pointer_v<Item>) {
            const std::string_view text(item);
            return std::tuple(text.data(), static_cast<std::int32_t>(text.size()));
        } else if constexpr (std::is_arithmetic_v<Item>) {
            return std::tuple(&item);
        } else {
            return std::tuple(std::decay_t<const Item>(item));
        }
    }

    template <class Entry, class... Items>
    static void Enter(Entry entry, const Items&... items) {
        std::apply(entry, std::tuple_cat(Passed(items)...));
    }

    static std::int32_t Open(std::int32_t catalogue) {
        std::int32_t err = -7;
        OPENSECTIONDATABASE(&catalogue, &err);
        return err;
    }

    static EngineAnswer Get(std::int32_t catalogue, std::int32_t type, const std::string& name,
                            std::int32_t unit = AsStored) {
        return Find(GETSECTION, catalogue, type, name, unit);
    }

    /// What a list query wrote.
    struct List {
        std::int32_t count = -7, valueCount = -7, err = -7;
    };

    /// Calls a list query: the arguments as in Enter, and the outputs of a list.
    template <class Entry, class... Items>
    static List Ask(Entry entry, const Items&... items) {
        List list;
        Enter(entry, items..., &list.count, &list.valueCount, &list.err);
        return list;
    }

    /// Calls a lookup of one section, likewise.
    template <class Entry, class... Items>
    static EngineAnswer Find(Entry entry, const Items&... items) {
        EngineAnswer answer;
        Enter(entry, items..., answer.values.data(), &answer.count, &answer.valueCount,
              &answer.err);
        return answer;
    }

    /// The same of one that finds the section type, too.
    template <class Entry, class... Items>
    static EngineAnswer FindType(Entry entry, std::int32_t catalogue, std::int32_t before,
                                 const Items&... items) {
        std::int32_t type = before;
        EngineAnswer answer = Find(entry, catalogue, &type, items...);
        answer.type = type;
        return answer;
    }

    using CursorStep = void (*)(const std::int32_t*, char*, std::int32_t, float*, std::int32_t*,
                                std::int32_t*);

    static EngineAnswer Move(CursorStep step, std::int32_t slot) {
        EngineAnswer answer;
        std::array<char, 64> name{};
        step(&slot, name.data(), static_cast<std::int32_t>(name.size()), answer.values.data(),
             &answer.status, &answer.err);
        answer.name = name.data();
        return answer;
    }

    /// The names of a slot from its first row on.
    static std::string Walk(std::int32_t slot) {
        std::string names;
        for (EngineAnswer row = Move(GETFIRSTSECTION, slot); row.status != 0;
             row = Move(GETNEXTSECTION, slot))
            names += (names.empty() ? "" : " ") + row.name;
        return names;
    }
};

} // namespace testsupport
