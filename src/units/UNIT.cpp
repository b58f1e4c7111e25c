#include "units/UNIT.h"

#include "units/UnitText.h"

#include <cmath>
#include <string_view>

const double UNIT::LengthConversionArray[8][8] = {
    {1.0, 0.083333333, 0.027777778, 25.4, 2.54, 0.254, 0.0254, 2.54e-05},
    {12.0, 1.0, 0.333333333, 304.8, 30.48, 3.048, 0.3048, 0.0003048},
    {36.0, 3.0, 1.0, 914.4, 91.44, 9.144, 0.9144, 0.0009144},
    {0.03937008, 0.00328084, 0.001093613, 1.0, 0.1, 0.01, 0.001, 1e-06},
    {0.3937008, 0.032808399, 0.010936133, 10.0, 1.0, 0.1, 0.01, 1e-05},
    {3.937008, 0.32808399, 0.10936133, 100.0, 10.0, 1.0, 0.1, 0.0001},
    {39.37008, 3.280839895, 1.093613298, 1000.0, 100.0, 10.0, 1.0, 0.001},
    {39370.08, 3280.839895, 1093.613298, 1000000.0, 100000.0, 10000.0, 1000.0, 1.0},
};

const double UNIT::ForceConversionArray[8][8] = {
    {1.0, 1000.0, 453.5922922, 0.453592292, 4448.222468, 444.8222468, 4.448222468, 0.004448222},
    {0.001, 1.0, 0.453592292, 0.000453592, 4.448222468, 0.444822247, 0.004448222, 4.44822e-06},
    {0.002204623, 2.204623, 1.0, 0.001, 9.80665, 0.980665, 0.00980665, 9.80665e-06},
    {2.204623, 2204.623, 1000.0, 1.0, 9806.65, 980.665, 9.80665, 0.00980665},
    {0.000224809, 0.224808924, 0.101971621, 0.000101972, 1.0, 0.1, 0.001, 1e-06},
    {0.002248089, 2.248089237, 1.019716213, 0.001019716, 10.0, 1.0, 0.01, 1e-05},
    {0.224808924, 224.8089237, 101.9716213, 0.101971621, 1000.0, 100.0, 1.0, 0.001},
    {224.8089237, 224808.9237, 101971.6213, 101.9716213, 1000000.0, 100000.0, 1000.0, 1.0},
};

namespace {

using dbsection::UnitFactor;
namespace UnitId = dbsection::UnitId;

double Power(double factor, double exponent) {
    return exponent == 1.0 ? factor : std::pow(factor, exponent);
}

double ConvertFactor(const UnitFactor& factor, unsigned int forceUnit, unsigned int lengthUnit) {
    return UnitId::IsLength(factor.id)
               ? UNIT::LengthConvertTo(1.0, factor.id, lengthUnit, factor.exponent)
               : UNIT::ForceConvertTo(1.0, factor.id, forceUnit, factor.exponent);
}

bool IsText(std::string_view unit) { return unit == "TEXT" || unit == "text" || unit == "Text"; }

} // namespace

unsigned int UNIT::StringToId(const CString& name) { return dbsection::UnitIdOf(name.View()); }

double UNIT::GetExponent(const CString& unit) { return dbsection::UnitExponent(unit.View()); }

double UNIT::LengthConvertTo(const double& value, unsigned int from, unsigned int to,
                             double exponent) {
    if (!UnitId::IsLength(from) || !UnitId::IsLength(to))
        return value;
    return value * Power(LengthConversionArray[from - Inch][to - Inch], exponent);
}

double UNIT::ForceConvertTo(const double& value, unsigned int from, unsigned int to,
                            double exponent) {
    if (!UnitId::IsForce(from) || !UnitId::IsForce(to))
        return value;
    return value * Power(ForceConversionArray[from - Kip][to - Kip], exponent);
}

// Plain numbers and angles are names of no unit, and so keep their value.
double UNIT::ConvertUnitTo(const double& value, const CString& unit, unsigned int forceUnit,
                           unsigned int lengthUnit) {
    if (IsText(unit.View()))
        return 0.0;
    double whole = 1.0;
    for (dbsection::UnitFactors factors(unit.View()); const auto factor = factors.Next();) {
        const double part = ConvertFactor(*factor, forceUnit, lengthUnit);
        whole = factor->isDivisor ? whole / part : whole * part;
    }
    return whole * value;
}
