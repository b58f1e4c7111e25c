// The entry points of the analysis engine.
#include "faults/PublicCall.h"

#include "dataaccess/CSectionException.h"
#include "dataaccess/ExceptionHandlers.h"
#include "engine/SectionEngine.h"
#include "interface/SectionDBInterface.h"

#include <array>
#include <tuple>

namespace faults {
namespace {

using Facade = SectionDBInterface;

/// What an entry point hands back. What it leaves alone stays -7, values -1.
struct HandedBack {
    std::int32_t type = -7, count = -7, valueCount = -7, status = -7, result = -7, err = -7;
    std::array<float, 17> values{};
    std::array<char, 32> name{};

    HandedBack() { values.fill(-1); }
};

HandedBack out;

/// An argument as the engine passes it: numbers by address, texts with their length.
template <class Item>
auto Passed(Item& item) {
    if constexpr (std::is_same_v<Item, const char*>)
        return std::tuple(item, static_cast<std::int32_t>(std::string_view(item).size()));
    else if constexpr (std::is_same_v<Item, char*>)
        return std::tuple(item, static_cast<std::int32_t>(out.name.size()));
    else if constexpr (std::is_pointer_v<Item>)
        return std::tuple(item);
    else
        return std::tuple(&item);
}

/// A call of an entry point. Its answer is what `told` makes of what was handed back; the kind that
/// was handed back must be the one that is stored.
template <class Told, class Entry, class... Items>
PublicCall Enters(const char* name, std::string right, std::vector<std::string> failed, Told told,
                  Entry entry, Items... items) {
    return Call(name, std::move(right), std::move(failed), [=] {
        out = {};
        std::tuple now(items...); // some are changed
        const auto enter = [&](auto&... each) {
            std::apply(entry, std::tuple_cat(Passed(each)...));
        };
        Under([&] { std::apply(enter, now); });
        const bool isStored = out.err == -7 || out.err == Facade::GetExceptionType();
        return std::string(told()) + (isStored ? "" : " with another kind");
    });
}

std::function<void()> Opened(std::int32_t catalogue) {
    return [=] {
        std::int32_t err = 0;
        OPENSECTIONDATABASE(&catalogue, &err);
    };
}

constexpr std::int32_t Millimetre = 1004, Kip = 2001, No = 0, TwoKeys = 2;
constexpr std::array<std::int32_t, 4> AreaThenName{3, -1, 0, 0};
const std::int32_t* const ByArea = AreaThenName.data();

/// Opens the W shapes by area into slot 1.
void OpenSorted() {
    Opened(American)();
    const std::int32_t catalogue = American, type = WShape;
    GETSORTEDSECTIONS(&catalogue, &type, ByArea, &TwoKeys, &Millimetre, &out.count, &out.valueCount,
                      &out.err);
}

std::string Result() { return Tell(out.result); }

std::string FirstValues() {
    return Tell(double{out.values[0]}, double{out.values[1]}, double{out.values[2]},
                double{out.values[3]});
}

/// A lookup of one section: a catalogue's values are handed over whole, or none of them.
template <class Entry, class... Items>
PublicCall Finds(const char* name, int catalogue, const char* counts, const char* values,
                 Entry entry, Items... items) {
    const std::string right(counts);
    const std::string width = right.substr(right.find(' '));
    return Enters(
               name, right + " " + values,
               {"0 0 -1 -1 -1 -1", "* " + width.substr(1) + " -1 -1 -1 -1"},
               [] { return Tell(out.count, out.valueCount) + " " + FirstValues(); }, entry,
               catalogue, items..., out.values.data(), &out.count, &out.valueCount, &out.err)
        .On(Opened(catalogue));
}

/// The same where the section type is found, too: none before, or that of the castellated beam.
template <class Entry, class... Items>
PublicCall FindsType(const char* name, int before, Entry entry, Items... items) {
    return Enters(
               name, "1 1 11 4935.5 309.88 164.85 9.652",
               {Tell(before) + " 0 0 -1 -1 -1 -1", "1 * -1 -1 -1 -1"},
               [] { return Tell(out.type, out.count, out.valueCount) + " " + FirstValues(); },
               [=](auto... all) {
                   out.type = before;
                   entry(all...);
               },
               American, &out.type, items..., Millimetre, out.values.data(), &out.count,
               &out.valueCount, &out.err)
        .On([] { // the castellated beam counts the rows of the query before
            Opened(American)();
            const std::int32_t catalogue = American, type = WShape;
            GETSECTION(&catalogue, &type, "W4X13", 5, &Millimetre, out.values.data(), &out.count,
                       &out.valueCount, &out.err);
        });
}

PublicCalls Lookups() {
    return {
        Finds("GETSECTION", American, "1 11", "4935.5 309.88 164.85 9.652", GETSECTION, WShape,
              "w12x26 ", Millimetre),
        // 0.38 in + 0.345 in
        Finds("GETSECTION of joined sections", American, "1 11", "4935.5 309.88 164.85 18.415",
              GETSECTION, WShape, "W12X26+W4X13", Millimetre),
        FindsType("GETSECTIONTYPEFROMVESSANAME", -7, GETSECTIONTYPEFROMVESSANAME, "w12x26"),
        FindsType("GETCASTELLATEDROOTBEAMSECTION", Castellated, GETCASTELLATEDROOTBEAMSECTION,
                  "cb18x26"),
        Finds("GETSTEELJOIST", Joists, "0 2", "14 9 -1 -1", GETSTEELJOIST, 1, "KCS", Millimetre),
        Finds("GETJOISTGIRDER", Joists, "1 8", "30 5 6 4.5", GETJOISTGIRDER, 5, "30S24G5N4.5K",
              Millimetre),
        // thicknesses in mm
        Finds("GETALUMINIUMMATERIALPROPERTY", Aluminium, "1 10", "0 25.4 0 0",
              GETALUMINIUMMATERIALPROPERTY, Alloy, "6061", 1, No, No, 0.5F, Millimetre, Kip),
    };
}

/// A list of the rows of a query; the answer is the number of its rows and values.
template <class Entry, class... Items>
PublicCall Lists(const char* name, int catalogue, const char* right, Entry entry, Items... items) {
    return Enters(
               name, right, {"0 *", "-7 -7"}, [] { return Tell(out.count, out.valueCount); }, entry,
               catalogue, items..., Millimetre, &out.count, &out.valueCount, &out.err)
        .On(Opened(catalogue));
}

PublicCall LoadType(const char* name, decltype(&FINDLHSERIESLOADTYPE) find, int series) {
    return Enters(name, "2", {"0", "-7"}, Result, find, Joists, series, 22.F, 24.F, &out.result,
                  &out.err)
        .On(Opened(Joists));
}

PublicCalls Queries() {
    return {
        Lists("GETSORTEDSECTIONS", American, "2 11", GETSORTEDSECTIONS, WShape, ByArea, TwoKeys),
        Lists("GETLIKESORTEDSECTIONS", American, "1 11", GETLIKESORTEDSECTIONS, WShape, ByArea,
              TwoKeys, "W12"),
        Lists("GETRANGESORTEDSECTIONS", American, "1 11", // in mm^2; the smaller one has 2471
              GETRANGESORTEDSECTIONS, WShape, ByArea, TwoKeys, 3, 3000.F, 2000.F),
        Lists("GETASSIGNSECTIONS", American, "1 11", GETASSIGNSECTIONS, WShape, "W4X13"),
        Lists("GETKSERIESSTEELJOISTS", Joists, "2 7", GETKSERIESSTEELJOISTS, 1, 20.F, 250.F, 150.F),
        Lists("GETKCSSERIESSTEELJOISTS", Joists, "1 7", GETKCSSERIESSTEELJOISTS, 2, 500.F, 3000.F),
        Lists("GETLHSERIESSTEELJOISTS", Joists, "1 6", GETLHSERIESSTEELJOISTS, 3, 1, 30.F, 20.F,
              8000.F, 0.F),
        Lists("GETDLHSERIESSTEELJOISTS", Joists, "1 7", GETDLHSERIESSTEELJOISTS, 4, 2, 22.F, 20.F,
              900.F, 500.F),
        Lists("GETJOISTGIRDERS", Joists, "1 8", GETJOISTGIRDERS, 5, 30.F, 5, 5.F, 24.F),
        LoadType("FINDLHSERIESLOADTYPE", FINDLHSERIESLOADTYPE, 3),
        LoadType("FINDDLHSERIESLOADTYPE", FINDDLHSERIESLOADTYPE, 4),
    };
}

using CursorStep = decltype(&GETFIRSTSECTION);

/// A step from the last or the first row of the W shapes by area.
PublicCall Step(const char* name, CursorStep step, CursorStep before, const char* right) {
    return Enters(
               name, right, {"0 empty -1"},
               [] { return Tell(out.status, CString(out.name.data()), double{out.values[0]}); },
               step, 1, out.name.data(), out.values.data(), &out.status, &out.err)
        .On([=] {
            OpenSorted();
            const std::int32_t slot = 1;
            before(&slot, out.name.data(), 0, out.values.data(), &out.status, &out.err);
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

const char* Done() { return "done"; }

constexpr const char* LongPath = "/a/folder/of/a/long/name";

PublicCall Sets(const char* name, decltype(&SETINIFILENAME) set, CString& setting,
                const std::string& right) {
    return Enters(
               name, right, {"empty"}, [&] { return Tell(setting); }, set, LongPath)
        .On([&] { setting = {}; });
}

PublicCalls Lifetime() {
    const auto counts = [](const char* name, decltype(&GETSECTIONCOUNT) count, const char* right) {
        return Enters(name, right, {"0", "-7"}, Result, count, American, WShape, &out.result,
                      &out.err);
    };
    return {
        Sets("SETUSERTABLEFILENAME", SETUSERTABLEFILENAME, Facade::m_szGenericTableFileName,
             LongPath),
        Sets("SETPROFILEDBFOLDER", SETPROFILEDBFOLDER, Facade::m_szSectionDBFolder,
             LongPath + std::string("\\")),
        Sets("SETINIFILENAME", SETINIFILENAME, Facade::m_szIniFileName, LongPath),
        Sets("SETDBIFILENAME", SETDBIFILENAME, Facade::m_szDBIFileName, "empty"),
        Enters("OPENSECTIONDATABASE", "1", {"closed"}, OpenCatalogue, OPENSECTIONDATABASE, American,
               &out.err),
        Enters("CLOSESECTIONDATABASE", "closed", {}, OpenCatalogue, CLOSESECTIONDATABASE, &out.err)
            .On(Opened(American)),
        Enters("CLOSESECTIONRECORDSET", "done", {}, Done, CLOSESECTIONRECORDSET, 1, &out.err)
            .On(OpenSorted),
        Enters("TERMINATEDAOSESSION", "done", {}, Done, TERMINATEDAOSESSION).On([] {
            Opened(American)();
            CLOSESECTIONDATABASE(&out.err);
        }),
        Enters("ISSECTIONDATABASECUSTOMIZED", "1", {"0"}, Result, ISSECTIONDATABASECUSTOMIZED, 3,
               &out.result, &out.err),
        counts("GETSECTIONCOUNT", GETSECTIONCOUNT, "2"),
        counts("GETFIELDCOUNT", GETFIELDCOUNT, "11"),
        Enters(
            "GETUNITFORFIELDANDCONVFACT", "1001 25.4", {"-7 -1"},
            [] { return Tell(out.result, double{out.values[0]}); }, GETUNITFORFIELDANDCONVFACT,
            American, WShape, 1, Millimetre, &out.result, out.values.data(), &out.err)
            .On(Opened(American)),
    };
}

PublicCalls Answers() {
    const auto name = [] { return Tell(out.status, CString(out.name.data())); };
    const auto failed = [] {
        HandleDaoException(new CSectionException(SectionError::Damaged, "It is damaged."),
                           "Reading failed.", "");
    };
    const auto message = [] {
        GETSECTIONMESSAGE(out.name.data(), 32, &out.result, &out.err);
        return Tell(out.result, CString(out.name.data()));
    };
    return {
        Enters(
            "SETSECTIONPASSWORD", ";PWD=a=long=password=", {"empty"},
            [] { return Tell(Facade::m_szPassword); }, SETSECTIONPASSWORD,
            "a=long=password=", &out.err)
            .On([] { Facade::m_szPassword = {}; }),
        Sets("SETUSERSECTIONFILENAME", SETUSERSECTIONFILENAME, Facade::m_szUserTableFileName,
             LongPath),
        Enters("GETOPENCATALOGUE", "1", {}, Result, GETOPENCATALOGUE, &out.result, &out.err)
            .On(Opened(American)),
        Enters("GETSLOTVALUECOUNT", "11", {}, Result, GETSLOTVALUECOUNT, 1, &out.result, &out.err)
            .On(OpenSorted),
        Enters("GETVALUENAME", "1 D", {"0 empty"}, name, GETVALUENAME, American, WShape, 1,
               out.name.data(), &out.status, &out.err),
        Enters("GETVALUEUNIT", "1 mm", {"0 empty"}, name, GETVALUEUNIT, American, WShape, 1,
               Millimetre, out.name.data(), &out.status, &out.err),
        Enters("GETSECTIONSTATUS", "done", {}, Done, GETSECTIONSTATUS, &out.err),
        Enters("RESETSECTIONSTATUS", "0 empty", {}, message, RESETSECTIONSTATUS, &out.err)
            .On(failed),
        Enters(
            "GETSECTIONMESSAGE", "30 Reading failed. It is damaged.", {"0 empty"},
            [] { return Tell(out.result, CString(out.name.data())); }, GETSECTIONMESSAGE,
            out.name.data(), &out.result, &out.err)
            .On(failed),
    };
}

} // namespace

PublicCalls EngineCalls() { return AllOf({Lifetime(), Lookups(), Queries(), Cursor(), Answers()}); }

} // namespace faults
