// The engine's entry points as the tests call them: values for references, results together.
#pragma once

#include "FacadeSupport.h"
#include "engine/SectionEngine.h"

#include <array>
#include <string>

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

    static std::int32_t Length(const std::string& text) {
        return static_cast<std::int32_t>(text.size());
    }

    static std::int32_t Open(std::int32_t catalogue) {
        std::int32_t err = -7;
        OPENSECTIONDATABASE(&catalogue, &err);
        return err;
    }

    static EngineAnswer Get(std::int32_t catalogue, std::int32_t type, const std::string& name,
                            std::int32_t unit = AsStored) {
        EngineAnswer answer;
        GETSECTION(&catalogue, &type, name.data(), Length(name), &unit, answer.values.data(),
                   &answer.count, &answer.valueCount, &answer.err);
        return answer;
    }

    /// What a list query wrote.
    struct List {
        std::int32_t count = -7, valueCount = -7, err = -7;
    };

    /// Calls a list query with the outputs of a list.
    template <class Call>
    static List Ask(Call call) {
        List list;
        call(&list.count, &list.valueCount, &list.err);
        return list;
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
