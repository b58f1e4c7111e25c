// Sections and their properties as tables print them, or as they were worked out by hand.
#pragma once

namespace geometrycases {

/// The units of a section's lengths, and those whose powers its other properties are in; in mm.
struct Units {
    double length;
    double power;
};
inline constexpr Units Metric{1, 10};
inline constexpr Units American{25.4, 25.4};
inline constexpr Units Millimetres{1, 1};

struct Case {
    const char* section;
    const char* model;
    Units units;
    const char* given;
    const char* parameters; ///< in mm
    const char* properties;
    double percent; ///< how far a computed property may be away
};

inline constexpr Case Cases[] = {
    // As published.
    {"IPE 300, EN 10365", "rolled I", Metric, "AX=53.81 D=300 BF=150 TF=10.7 TW=7.1", "rest=0",
     "IZ=8356 IY=603.8 IX=19.92 CW=125900 ZZ=628.4 ZY=125.2", 0.4},
    {"IPE 300, EN 10365", "parallel I", Metric, "D=300 BF=150 TF=10.7 TW=7.1", "radius=15 rest=0",
     "AX=53.81 IZ=8356 IY=603.8 IX=19.92 ZZ=628.4 ZY=125.2 CW=125900", 0.1},
    {"IPN 300, EN 10365", "tapered I", Metric, "D=300 BF=125 TF=16.2 TW=10.8",
     "radius=10.8 toe=0.6 slope=0.14 place=31.25", "AX=69 IZ=9800 IY=451 ZZ=762 ZY=121", 0.6},
    {"S12X31.8, AISC", "sloped I", American, "D=12 BF=5 TF=0.544 TW=0.35",
     "radius=9.398 toe=0.6 slope=0.166667", "AX=9.31 IZ=217 IY=9.33 IX=0.878 CW=306 ZZ=41.8", 0.5},
    {"UPE 200, EN 10365", "rolled channel", Metric, "AX=29.01 D=200 BF=80 TF=11 TW=6", "",
     "IZ=1909 IY=187.3 CZ=25.6 ZZ=220.1 IX=8.89", 1.2},
    {"PFC 200 x 75 x 23, EN 10365", "parallel channel", Metric, "D=200 BF=75 TF=12.5 TW=6",
     "radius=12", "AX=29.9 IZ=1960 IY=170 IX=11.1 CW=10700 ZZ=227 ZY=60.6", 0.4},
    {"UPE 200, EN 10365", "parallel channel of plates", Metric, "D=200 BF=80 TF=11 TW=6",
     "radius=13", "AX=29 IZ=1910 IY=187 IX=8.89 CW=11000 ZZ=220", 0.7},
    {"UPN 200, EN 10365", "tapered channel", Metric, "D=200 BF=75 TF=11.5 TW=8.5",
     "radius=11.5 toe=0.5 slope=0.08 place=37.5",
     "AX=32.2 IZ=1910 IY=148 IX=11.9 CW=9070 ZZ=228 ZY=51.8", 0.6},
    {"MC 150, IS 808", "sloped channel", Metric, "D=150 BF=75 TF=9 TW=5.7",
     "radius=10 toe=0.24 slope=0.105104", "AX=21.3 IZ=786 IY=102 IX=5.45 ZZ=121 CZ=22", 1.2},
    {"C10X20, AISC", "American channel", American, "D=10 BF=2.74 TF=0.436 TW=0.379",
     "radius=8.636 toe=0.45 slope=0.166667",
     "AX=5.87 IZ=78.9 IY=2.8 IX=0.368 CW=56.9 ZZ=19.4 CZ=0.606", 0.5},
    {"TW 100x200x8x12, GB/T 11263", "rolled tee", Metric, "AX=31.76 D=100 BF=200 TF=12 TW=8", "",
     "IZ=184 IY=801 CY=17.3", 0.4},
    {"TW 100x200x8x12, GB/T 11263", "parallel tee", Metric, "D=100 BF=200 TF=12 TW=8", "radius=13",
     "AX=31.76 IZ=184 IY=801 CY=17.3", 0.3},
    {"ISST 100, IS 1173", "tapered tee", Metric, "D=100 BF=50 TF=10 TW=5.8",
     "radius=8 toe=0.5 slope=0.140541", "AX=10.37 IY=9.6 CY=30.3", 0.6},
    {"CS 300 x 62, NBR 5884", "welded I", Metric, "D=300 BF=300 TF=9.5 TW=8", "",
     "AX=79.5 IZ=13509 IY=4276 IX=22 CW=901921 ZZ=986 ZY=432", 0.5},
    {"L 100x100x10, EN 10056-1", "rolled angle", Metric, "AX=19.15 D=100 B=100 T=10", "toe=0.5",
     "IZ=176.7 IY=176.7 CY=28.2 CZ=28.2 RV=19.5 ALPHA=45", 0.2},
    {"L 200x150x18, EN 10056-1", "angle", Metric, "D=200 B=150 T=18", "radius=15 toe=0.5",
     "AX=60.1 IZ=2380 IY=1150 IX=67.9 RV=32.2 CY=63.3 CZ=38.5 ALPHA=28.77", 0.6},
    {"L6X4X1/2, AISC", "angle by radii", American, "D=6 B=4 T=0.5",
     "radius=9.525 toeRadius=4.572 ends=3 productCorners=0",
     "AX=4.75 IZ=17.3 IY=6.22 IX=0.407 CY=1.98 CZ=0.981 RV=0.864 ALPHA=23.75", 0.5},
    {"two L4X4X1/2, AISC, 3/8 apart", "rolled double angle", American,
     "AX=7.5 D=4 B=4 T=0.5 GAP=0.375", "toe=0.5 ends=3",
     "IZ=11.04 IY=25.0654 CY=1.18 CZ=1.18 RV=1.21", 1},
    {"two L4X4X1/2, AISC, 3/8 apart", "double angle", American, "D=4 B=4 T=0.5 GAP=0.375",
     "radius=9.525 toe=0.5 ends=3", "AX=7.5 IZ=11.04 IY=25.0654 IX=0.644 CY=1.18 CZ=1.18 RV=1.21",
     1},
    {"HSS8X4X1/4, AISC", "rectangular tube", American, "D=8 B=4 T=0.233", "outside=2 inside=1",
     "AX=5.24 IZ=42.5 IY=14.4 IX=35.3 ZZ=13.3 ZY=8.2", 0.4},
    {"RHS 200 x 100 x 8.0, EN 10210-2", "European tube", Metric, "D=200 B=100 T=8",
     "outside=1.5 inside=1", "AX=44.8 IZ=2230 IY=739 IX=1800 ZZ=282 ZY=172", 0.3},
    {"RHS 200 x 100 x 8.0, EN 10210-2", "rectangular tube by area", Metric,
     "AX=44.8 D=200 B=100 T=8", "", "IZ=2230 IY=739 ZZ=282 ZY=172", 0.7},
    {"70x50x4, GOST 30245", "rectangular tube by radii", Metric, "D=70 B=50 T=4",
     "outsideRadius=8 insideRadius=4", "AX=8.55 IZ=54.64 IY=32.16", 0.2},
    {"TR 100 x 60 x 7.1, NBR 8261", "European tube by radii", Metric, "D=100 B=60 T=7.1",
     "outsideRadius=17.75 insideRadius=10.65", "IZ=217 IY=96.8 IX=242 ZZ=57.2 ZY=40", 0.3},
    {"CHS 101.6 x 4.0, EN 10210-2", "round tube", Metric, "OD=101.6 T=4", "",
     "AX=12.3 I=146 Z=38.1", 0.3},
    {"HP 200 x 10, EN 10067", "bulb flat", Metric, "D=200 T=10 C=28 R=8", "", "AX=25.66", 0.4},
    {"600S162-54", "lipped channel", American, "D=6 B=1.625 L=0.5 T=0.0566 R=0.0849",
     "warpingCorners=0", "AX=0.556 IZ=2.86 IX=0.000594 IY=0.18 CW=1.337", 0.7},
    {"400T200-54", "bent channel", American, "D=4.198 B=2 T=0.0566 R=0.0849", "warpingCorners=0",
     "AX=0.452 IZ=1.268 IX=0.000483 IY=0.182 CW=0.551", 0.4},
    // By finite elements.
    {"ISST 250, IS 1173", "tapered tee", Millimetres, "D=250 BF=180 TF=14.1 TW=9.2",
     "radius=17 toe=0.5 slope=0.140541", "IX=322570 CW=355.3e6", 5.5},
    {"legs whose bend warps less than their thickness", "bent angle", Millimetres,
     "D=80 B=50 T=4 R=4", "", "CW=1.0276e6", 2},
    // By closed formulas.
    {"flanges of 300 x 20 and 200 x 10 on a web of 12", "unequal I", Millimetres,
     "D=500 BF=300 TF=20 TW=12", "BF2=200 TF2=10",
     "AX=13640 IZ=507534827.96 IY=51734346.667 IX=1146026.6667 CW=1365822580645", 1e-5},
    {"hexagonal openings of 400 in a beam of 600", "castellated", Millimetres,
     "D=600 BF=200 TF=15 TW=10 HO=400 E=120 THETA=60", "",
     "AX=7700 IZ=614444166.67 IY=20014166.667 DT=100 S=470.94011", 1e-5},
    {"bar of 80 x 20", "rectangle", Millimetres, "D=80 B=20", "",
     "AX=1600 IZ=853333.33 IY=53333.333 IX=179734.9", 1e-2},
    {"square of 100", "timber", Millimetres, "D=100 B=100", "",
     "AX=1e4 IZ=8333333.33 IY=8333333.33 IX=14057700", 1e-3},
    {"2 x 8", "dressed lumber", American, "D=7.25 B=1.5", "nominalDepth=8 nominalWidth=2",
     "AX=10.875 IZ=47.634766 IY=2.0390625", 1e-5},
    {"round 20", "round bar", Millimetres, "D=20", "", "AX=314.15927 I=7853.9816", 1e-5},
    // Integrated along the middle line.
    {"bent angle", "bent angle", Millimetres, "D=80 B=50 T=4 R=4", "",
     "AX=493.69911 IZ=332851.75 IY=104771.03 CZ=11.343467 CY=26.656438 IX=2633.0619", 0.02},
    {"lipped angle", "lipped angle", Millimetres, "D=80 B=60 L=15 T=2 R=3", "",
     "AX=317.69911 IZ=255929.35 IY=136159.94 CZ=16.695506 CY=26.803584 CW=12788157 IX=423.59881",
     0.02},
    {"lipped channel", "lipped channel", Millimetres, "D=200 B=75 L=20 T=2 R=3", "",
     "AX=750.26548 IZ=4630913.2 IY=558059.67 CZ=21.932177 CW=4419508400 IX=1000.354", 0.02},
    {"bent zee", "bent zee", Millimetres, "D=120 B=50 T=3 R=4", "",
     "AX=627.83628 IZ=1347054.4 IY=228438.39 CZ=1.5 CW=502672470 IX=1883.5088", 0.02},
    {"lipped zee", "lipped zee", Millimetres, "D=200 B=70 L=20 T=2 R=3", "",
     "AX=730.26548 IZ=4434886.6 IY=738639.76 CZ=1 CW=5125835100 IX=973.68731", 0.02},
    {"hat", "hat", Millimetres, "D=50 B=80 L=25 T=1.5 R=3", "",
     "AX=330.84292 IZ=134404.69 IY=483931.3 CZ=40 CY=22.031446 CW=86153243 IX=248.13219", 0.02},
    {"eave strut whose upper flange rises 1:12", "eave strut", Millimetres,
     "D=200 B=75 L=20 T=2 R=3", "slope=0.0833333333",
     "AX=751.19769 IZ=4770398.5 IY=560348.65 CZ=21.929264 CY=101.01318 CW=4339423000 IX=1001.5969",
     0.02},
};

} // namespace geometrycases
