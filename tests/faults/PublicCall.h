// The public calls as data: each with its right answer, and the answers that tell a failure. Both
// are written by hand.
//
//     Call("GetSectionCount", "2", {"0"},
//          [] { return Facade::GetSectionCount(American, Rod); })
#pragma once

#include "faults/Injector.h"
#include "platform/CString.h"
#include "platform/Collections.h"

#include <functional>
#include <string>
#include <vector>

namespace faults {

struct PublicCall {
    const char* name;
    std::string right;

    /// The answers that tell a failure; a `*` stands for anything.
    std::vector<std::string> failed;

    /// Makes the call, the failures being Under it alone, and tells its answer.
    std::function<std::string()> run;

    /// What must be open, or true, before it.
    std::function<void()> prepare = [] {};

    /// What is in the file that it writes afterwards; " -> " and this text follow the answer.
    std::function<std::string()> left = {};

    /// Fails without storing a kind, as it is documented.
    bool isQuiet = false;

    /// Reports to the person at the screen that a failure may lead to.
    std::size_t mostReports = 1;

    PublicCall On(std::function<void()> preparation) &&;
    PublicCall Leaving(std::function<std::string()> content) &&;
    PublicCall Quietly() &&;
    PublicCall Reporting(std::size_t times) &&;
};

using PublicCalls = std::vector<PublicCall>;

PublicCalls AllOf(std::initializer_list<PublicCalls> parts);

/// Catalogues, and section types of theirs, of the world's files.
inline constexpr int American = 1, Aluminium = 17, Joists = 21;
inline constexpr int WShape = 1, Angle = 8, Castellated = 13, Rod = 15, Alloy = 22;

PublicCalls LifecycleCalls();
PublicCalls NameCalls();
PublicCalls ListCalls();
PublicCalls QueryCalls();
PublicCalls EngineCalls();
PublicCalls DatabaseCalls();
PublicCalls RecordsetCalls();
PublicCalls DataClassCalls();
PublicCalls CatalogueCalls();
PublicCalls UnitCalls();
PublicCalls PlatformCalls();

// Answers as text. Lists and arrays that are handed over are deleted.

std::string Tell(int value);
std::string Tell(double value);
std::string Tell(const CString& text);
std::string Tell(const CStringArray& texts);
std::string Tell(const CUIntArray& numbers);
std::string Tell(CStringList* list);
std::string Tell(CStringArray* array);

template <class Head, class... Tail>
requires(sizeof...(Tail) > 0) std::string Tell(const Head& head, const Tail&... tail) {
    return Tell(head) + " " + Tell(tail...);
}

/// A call that runs `body`. Its answer is what that returns; of one that returns nothing, "done".
/// A body that returns a std::string has made the call Under the failures itself.
template <class Body>
PublicCall Call(const char* name, std::string right, std::vector<std::string> failed, Body body) {
    const auto run = [body]() mutable -> std::string {
        using Result = decltype(body());
        if constexpr (std::is_same_v<Result, std::string>) {
            return body();
        } else if constexpr (std::is_void_v<Result>) {
            Under(body);
            return "done";
        } else {
            return Tell(Under(body));
        }
    };
    return {name, std::move(right), std::move(failed), run};
}

} // namespace faults
