#include "catalogues/JoistTables.h"

#include <array>

namespace {

using enum SectionField::Type;

constexpr JoistColumn RecordNumber{"RECNO", Long, "NUMBER"};
constexpr JoistColumn Name{"Name", Text, "TEXT"};
constexpr JoistColumn VessaName{"VessaName", Text, "TEXT"};
constexpr JoistColumn JoistId{"JoistID", Long, "NUMBER"};
constexpr JoistColumn Span{"Span", Double, "FEET"};
constexpr JoistColumn Depth{"Depth", Double, "INCHES"};
constexpr JoistColumn Weight{"Weight", Double, "POUND/FEET"};
constexpr JoistColumn TitleId{"TitleID", Long, "NUMBER"};
constexpr JoistColumn ColorId{"ColorID", Long, "NUMBER"};

constexpr std::array Joists{RecordNumber,
                            Name,
                            VessaName,
                            JoistId,
                            JoistColumn{"Designation", Text, "TEXT"},
                            JoistColumn{"SeriesID", Long, "NUMBER"},
                            Depth,
                            Weight};

constexpr std::array JoistLoads{JoistId,
                                Span,
                                JoistColumn{"TotalLoad", Double, "POUND/FEET"},
                                JoistColumn{"LiveLoad", Double, "POUND/FEET"},
                                TitleId,
                                ColorId};

constexpr std::array SafeLoads{JoistId, Span, JoistColumn{"SafeLoad", Double, "POUND"}, TitleId,
                               ColorId};

constexpr std::array KcsLoads{JoistId,
                              JoistColumn{"MomentCapacity", Double, "KIPS.INCHES"},
                              JoistColumn{"ShearCapacity", Double, "POUND"},
                              JoistColumn{"GrossMI", Double, "INCHES^4"},
                              JoistColumn{"BridgTableSectNO", Long, "NUMBER"},
                              TitleId};

constexpr std::array Girders{RecordNumber,
                             Name,
                             VessaName,
                             JoistId,
                             Span,
                             JoistColumn{"NumberOfJoist", Long, "NUMBER"},
                             JoistColumn{"Space", Double, "FEET"},
                             Depth};

constexpr std::array GirderLoads{JoistId, JoistColumn{"PanelPtLoad", Double, "KIPS"}, Weight,
                                 TitleId, ColorId};

constexpr std::array Tables{
    JoistTable{"OWJoistMaster", Joists},      JoistTable{"OWJoistLoad", JoistLoads},
    JoistTable{"OWJoistSafeLoad", SafeLoads}, JoistTable{"OWKCSJoistLoad", KcsLoads},
    JoistTable{"JoistGirderMaster", Girders}, JoistTable{"JoistGirderLoad", GirderLoads},
};

} // namespace

std::span<const JoistTable> dbsection::JoistTables() { return Tables; }
