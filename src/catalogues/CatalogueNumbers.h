// Catalogue indices that are named, be it since something holds for that catalogue alone.
#pragma once

inline constexpr int AmericanIndex = 1; ///< kept in inches and kips
inline constexpr int AluminiumIndex = 17;
inline constexpr int AmericanColdFormedIndex = 18; ///< calls its area "Area"
inline constexpr int SteelJoistIndex = 21;
inline constexpr int LastCatalogueIndex = 37; ///< of those that are counted from 1
inline constexpr int UserTableIndex = 1001;
inline constexpr int GenericTableIndex = 1010;
