// The entry points of the analysis engine. Each answer ends in the kind that it has handed back,
// unless that is 0: what is right has no kind, what failed has one.
#include "faults/PublicCall.h"

#include "engine/SectionEngine.h"
#include "interface/SectionDBInterface.h"

#include <algorithm>
#include <array>

namespace faults {
namespace {

using Facade = SectionDBInterface;

/// What an entry point reads and writes. What it leaves alone stays -7, values -1.
struct Arguments {
    std::int32_t catalogue = American, type = WShape, unit = 1004, slot = 1;
    std::int32_t count = -7, valueCount = -7, status = -7, result = -7, err = -7;
    std::array<float, 17> values{};
    std::array<char, 32> name{};

    Arguments() { values.fill(-1); }

    std::string Values() const {
        return Tell(double{values[0]}, double{values[1]}, double{values[2]});
    }
};

/// The answer; the kind that was handed back must be the one that is stored.
std::string WithKind(const Arguments& arguments, const std::string& answer) {
    return arguments.err == Facade::GetExceptionType() ? answer : answer + " with another kind";
}

template <class Ask, class Told>
std::function<std::string()> Entry(Arguments arguments, Ask ask, Told told) {
    return [=]() mutable {
        Arguments now = arguments;
        Under([&] { ask(now); });
        return WithKind(now, told(now));
    };
}

std::string Section(const Arguments& a) { return Tell(a.count, a.valueCount) + " " + a.Values(); }

Arguments Of(int catalogue, int type, int slot = 1) {
    Arguments arguments;
    arguments.catalogue = catalogue;
    arguments.type = type;
    arguments.slot = slot;
    return arguments;
}

std::function<void()> Opened(std::int32_t catalogue) {
    return [=] {
        std::int32_t err = 0;
        OPENSECTIONDATABASE(&catalogue, &err);
    };
}

/// A section's values are handed over whole, or none of them.
const std::vector<std::string> NoSection{"0 0 -1 -1 -1", "0 11 -1 -1 -1", "1 11 -1 -1 -1"};

PublicCalls Lookups() {
    const auto named = [](const char* name) {
        return [=](Arguments& a) {
            GETSECTION(&a.catalogue, &a.type, name,
                       static_cast<std::int32_t>(std::string_view(name).size()), &a.unit,
                       a.values.data(), &a.count, &a.valueCount, &a.err);
        };
    };
    const auto withType = [](const Arguments& a) { return Tell(a.type) + " " + Section(a); };
    return {
        Call("GETSECTION", "1 11 4935.5 309.88 164.85", NoSection,
             Entry({}, named("w12x26 "), Section))
            .On(Opened(American)),

        // 0.38 in + 0.345 in
        Call("GETSECTION of joined sections", "1 11 4935.5 309.88 164.85 18.415",
             {"0 0 -1 -1 -1 -1", "0 11 -1 -1 -1 -1", "1 11 -1 -1 -1 -1"},
             Entry({}, named("W12X26+W4X13"),
                   [](const Arguments& a) { return Section(a) + " " + Tell(double{a.values[3]}); }))
            .On(Opened(American)),
        Call("GETSECTIONTYPEFROMVESSANAME", "1 1 11 4935.5 309.88 164.85",
             {"-7 0 0 -1 -1 -1", "1 0 0 -1 -1 -1", "1 0 11 -1 -1 -1", "1 1 11 -1 -1 -1"},
             [=] {
                 Arguments a;
                 a.type = -7;
                 Under([&] {
                     GETSECTIONTYPEFROMVESSANAME(&a.catalogue, &a.type, "w12x26", 6, &a.unit,
                                                 a.values.data(), &a.count, &a.valueCount, &a.err);
                 });
                 return Tell(a.type) + " " + Section(a); // err only where it was found
             })
            .On(Opened(American)),
        Call("GETCASTELLATEDROOTBEAMSECTION", "1 1 11 4935.5 309.88 164.85",
             {"13 0 0 -1 -1 -1", "1 0 0 -1 -1 -1", "1 0 11 -1 -1 -1", "1 1 11 -1 -1 -1"},
             Entry(
                 Of(American, Castellated),
                 [](Arguments& a) {
                     GETCASTELLATEDROOTBEAMSECTION(&a.catalogue, &a.type, "cb18x26", 7, &a.unit,
                                                   a.values.data(), &a.count, &a.valueCount,
                                                   &a.err);
                 },
                 withType))
            .On([] {
                Opened(American)();
                Arguments a;
                GETSECTION(&a.catalogue, &a.type, "W4X13", 5, &a.unit, a.values.data(), &a.count,
                           &a.valueCount, &a.err);
            }),
        Call("GETSTEELJOIST", "2 14 9", {"0 -1 -1", "2 -1 -1"},
             Entry(
                 Of(Joists, 1),
                 [](Arguments& a) {
                     GETSTEELJOIST(&a.catalogue, &a.type, "KCS", 3, &a.unit, a.values.data(),
                                   &a.count, &a.valueCount, &a.err);
                 },
                 [](const Arguments& a) {
                     return Tell(a.valueCount, double{a.values[0]}, double{a.values[1]});
                 }))
            .On(Opened(Joists)),
        Call("GETJOISTGIRDER", "1 8 30 5 6", {"0 0 -1 -1 -1", "0 8 -1 -1 -1", "1 8 -1 -1 -1"},
             Entry(
                 Of(Joists, 5),
                 [](Arguments& a) {
                     GETJOISTGIRDER(&a.catalogue, &a.type, "30S24G5N4.5K", 12, &a.unit,
                                    a.values.data(), &a.count, &a.valueCount, &a.err);
                 },
                 Section))
            .On(Opened(Joists)),

        // thicknesses in mm
        Call("GETALUMINIUMMATERIALPROPERTY", "1 10 0 25.4 0",
             {"0 0 -1 -1 -1", "0 10 -1 -1 -1", "1 10 -1 -1 -1"},
             Entry(
                 Of(Aluminium, Alloy),
                 [](Arguments& a) {
                     const std::int32_t product = 1, no = 0, kip = 2001;
                     const float thickness = 0.5F;
                     GETALUMINIUMMATERIALPROPERTY(&a.catalogue, &a.type, "6061", 4, &product, &no,
                                                  &no, &thickness, &a.unit, &kip, a.values.data(),
                                                  &a.count, &a.valueCount, &a.err);
                 },
                 Section))
            .On(Opened(Aluminium)),
    };
}

constexpr std::array<std::int32_t, 4> ByArea{3, -1, 0, 0};
constexpr std::int32_t TwoKeys = 2;

/// A list, and how it answers: the number of its rows and values.
template <class Ask>
PublicCall List(const char* name, Arguments arguments, Ask ask, const char* right) {
    return Call(name, right, {"0 *", "-7 -7"},
                Entry(arguments, ask,
                      [](const Arguments& a) { return Tell(a.count, a.valueCount); }))
        .On(Opened(arguments.catalogue));
}

PublicCall LoadType(const char* name, decltype(&FINDLHSERIESLOADTYPE) find, std::int32_t series) {
    return Call(name, "2", {"0", "-7"},
                Entry(
                    Of(Joists, series),
                    [=](Arguments& a) {
                        const float span = 22, depth = 24;
                        find(&a.catalogue, &a.type, &span, &depth, &a.result, &a.err);
                    },
                    [](const Arguments& a) { return Tell(a.result); }))
        .On(Opened(Joists));
}

PublicCalls Lists() {
    return {
        List(
            "GETSORTEDSECTIONS", {},
            [](Arguments& a) {
                GETSORTEDSECTIONS(&a.catalogue, &a.type, ByArea.data(), &TwoKeys, &a.unit, &a.count,
                                  &a.valueCount, &a.err);
            },
            "2 11"),
        List(
            "GETLIKESORTEDSECTIONS", {},
            [](Arguments& a) {
                GETLIKESORTEDSECTIONS(&a.catalogue, &a.type, ByArea.data(), &TwoKeys, "W12", 3,
                                      &a.unit, &a.count, &a.valueCount, &a.err);
            },
            "1 11"),
        List(
            "GETRANGESORTEDSECTIONS", {},
            [](Arguments& a) {
                const std::int32_t area = 3;
                float upper = 3000, lower = 2000; // mm^2; the smaller one has 2471
                GETRANGESORTEDSECTIONS(&a.catalogue, &a.type, ByArea.data(), &TwoKeys, &area,
                                       &upper, &lower, &a.unit, &a.count, &a.valueCount, &a.err);
            },
            "1 11"),
        List(
            "GETASSIGNSECTIONS", {},
            [](Arguments& a) {
                GETASSIGNSECTIONS(&a.catalogue, &a.type, "W4X13", 5, &a.unit, &a.count,
                                  &a.valueCount, &a.err);
            },
            "1 11"),
        List(
            "GETKSERIESSTEELJOISTS", Of(Joists, 1),
            [](Arguments& a) {
                const float span = 20, total = 250, live = 150;
                GETKSERIESSTEELJOISTS(&a.catalogue, &a.type, &span, &total, &live, &a.unit,
                                      &a.count, &a.valueCount, &a.err);
            },
            "2 7"),
        List(
            "GETKCSSERIESSTEELJOISTS", Of(Joists, 2),
            [](Arguments& a) {
                const float moment = 500, shear = 3000;
                GETKCSSERIESSTEELJOISTS(&a.catalogue, &a.type, &moment, &shear, &a.unit, &a.count,
                                        &a.valueCount, &a.err);
            },
            "1 7"),
        List(
            "GETLHSERIESSTEELJOISTS", Of(Joists, 3),
            [](Arguments& a) {
                const std::int32_t safe = 1;
                const float span = 30, depth = 20, load = 8000, none = 0;
                GETLHSERIESSTEELJOISTS(&a.catalogue, &a.type, &safe, &span, &depth, &load, &none,
                                       &a.unit, &a.count, &a.valueCount, &a.err);
            },
            "1 6"),
        List(
            "GETDLHSERIESSTEELJOISTS", Of(Joists, 4),
            [](Arguments& a) {
                const std::int32_t both = 2;
                const float span = 22, depth = 20, total = 900, live = 500;
                GETDLHSERIESSTEELJOISTS(&a.catalogue, &a.type, &both, &span, &depth, &total, &live,
                                        &a.unit, &a.count, &a.valueCount, &a.err);
            },
            "1 7"),
        List(
            "GETJOISTGIRDERS", Of(Joists, 5),
            [](Arguments& a) {
                const std::int32_t joists = 5;
                const float span = 30, load = 5, depth = 24;
                GETJOISTGIRDERS(&a.catalogue, &a.type, &span, &joists, &load, &depth, &a.unit,
                                &a.count, &a.valueCount, &a.err);
            },
            "1 8"),
        LoadType("FINDLHSERIESLOADTYPE", FINDLHSERIESLOADTYPE, 3),
        LoadType("FINDDLHSERIESLOADTYPE", FINDDLHSERIESLOADTYPE, 4),
    };
}

using CursorStep = void (*)(const std::int32_t*, char*, std::int32_t, float*, std::int32_t*,
                            std::int32_t*);

/// A step from the last or the first row of the W shapes by area.
PublicCall Step(const char* name, CursorStep step, CursorStep before, const char* right) {
    return Call(name, right, {"0 empty -1"},
                Entry(
                    {},
                    [=](Arguments& a) {
                        step(&a.slot, a.name.data(), 32, a.values.data(), &a.status, &a.err);
                    },
                    [](const Arguments& a) {
                        return Tell(a.status, CString(a.name.data()), double{a.values[0]});
                    }))
        .On([=] {
            Opened(American)();
            Arguments a;
            GETSORTEDSECTIONS(&a.catalogue, &a.type, ByArea.data(), &TwoKeys, &a.unit, &a.count,
                              &a.valueCount, &a.err);
            before(&a.slot, a.name.data(), 32, a.values.data(), &a.status, &a.err);
        });
}

PublicCalls Cursor() {
    return {Step("GETFIRSTSECTION", GETFIRSTSECTION, GETLASTSECTION, "1 W4x13 2471"),
            Step("GETNEXTSECTION", GETNEXTSECTION, GETFIRSTSECTION, "1 W12x26 4935.5"),
            Step("GETPREVSECTION", GETPREVSECTION, GETLASTSECTION, "1 W4x13 2471"),
            Step("GETLASTSECTION", GETLASTSECTION, GETFIRSTSECTION, "1 W12x26 4935.5")};
}

/// Whether the engine's database is open on a catalogue: its number, or "closed".
std::string OpenCatalogue() {
    return gblSectionDatabase != nullptr && gblSectionDatabase->IsOpen() ? Tell(Facade::m_nCountry)
                                                                         : "closed";
}

template <class Setter>
PublicCall Setting(const char* name, Setter set, CString& setting, const char* right) {
    return Call(name, right, {"empty"},
                [=, &setting] {
                    constexpr std::string_view Path("/a/folder/of/a/long/name");
                    Under([&] { set(Path.data(), static_cast<std::int32_t>(Path.size())); });
                    return Tell(setting);
                })
        .On([&setting] { setting = {}; });
}

PublicCalls Lifetime() {
    const auto number = [](const Arguments& a) { return Tell(a.result); };
    return {
        Setting("SETUSERTABLEFILENAME", SETUSERTABLEFILENAME, Facade::m_szGenericTableFileName,
                "/a/folder/of/a/long/name"),
        Setting("SETPROFILEDBFOLDER", SETPROFILEDBFOLDER, Facade::m_szSectionDBFolder,
                "/a/folder/of/a/long/name\\"),
        Setting("SETINIFILENAME", SETINIFILENAME, Facade::m_szIniFileName,
                "/a/folder/of/a/long/name"),
        Setting("SETDBIFILENAME", SETDBIFILENAME, Facade::m_szDBIFileName, "empty"),
        Call("OPENSECTIONDATABASE", "1", {"closed"},
             Entry(
                 {}, [](Arguments& a) { OPENSECTIONDATABASE(&a.catalogue, &a.err); },
                 [](const Arguments&) { return OpenCatalogue(); })),
        Call("CLOSESECTIONDATABASE", "closed", {},
             Entry(
                 {}, [](Arguments& a) { CLOSESECTIONDATABASE(&a.err); },
                 [](const Arguments&) { return OpenCatalogue(); }))
            .On(Opened(American)),
        Call("CLOSESECTIONRECORDSET", "done", {},
             Entry(
                 {}, [](Arguments& a) { CLOSESECTIONRECORDSET(&a.slot, &a.err); },
                 [](const Arguments&) { return std::string("done"); }))
            .On([] {
                Opened(American)();
                Arguments a;
                GETSORTEDSECTIONS(&a.catalogue, &a.type, ByArea.data(), &TwoKeys, &a.unit, &a.count,
                                  &a.valueCount, &a.err);
            }),
        Call("TERMINATEDAOSESSION", "done", {}, TERMINATEDAOSESSION).On([] {
            Opened(American)();
            std::int32_t err = 0;
            CLOSESECTIONDATABASE(&err);
        }),
        Call("ISSECTIONDATABASECUSTOMIZED", "1", {"0"},
             Entry(
                 Of(3, 1),
                 [](Arguments& a) { ISSECTIONDATABASECUSTOMIZED(&a.catalogue, &a.result, &a.err); },
                 number)),
        Call("GETSECTIONCOUNT", "2", {"0", "-7"},
             Entry(
                 {},
                 [](Arguments& a) { GETSECTIONCOUNT(&a.catalogue, &a.type, &a.result, &a.err); },
                 number)),
        Call("GETFIELDCOUNT", "11", {"0", "-7"},
             Entry(
                 {}, [](Arguments& a) { GETFIELDCOUNT(&a.catalogue, &a.type, &a.result, &a.err); },
                 number)),
        Call("GETUNITFORFIELDANDCONVFACT", "1001 25.4", {"-7 -1"},
             Entry(
                 {},
                 [](Arguments& a) {
                     const std::int32_t depth = 1;
                     GETUNITFORFIELDANDCONVFACT(&a.catalogue, &a.type, &depth, &a.unit, &a.result,
                                                a.values.data(), &a.err);
                 },
                 [](const Arguments& a) { return Tell(a.result, double{a.values[0]}); }))
            .On(Opened(American)),
    };
}

} // namespace

PublicCalls EngineCalls() {
    PublicCalls all;
    for (const auto& part : {Lifetime(), Lookups(), Lists(), Cursor()})
        all.insert(all.end(), part.begin(), part.end());
    return all;
}

} // namespace faults
