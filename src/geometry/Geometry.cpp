#include "geometry/Geometry.h"

#include "geometry/ModelParts.h"

#include <algorithm>
#include <cmath>

namespace dbsection {

void Require(bool possible, const char* otherwise) {
    if (!possible)
        throw GeometryError(otherwise);
}

double Value(const Figures& figures, std::string_view name) {
    const auto place = figures.find(name);
    if (place == figures.end())
        throw GeometryError("the figure " + std::string(name) + " is missing");
    return place->second;
}

double Dimension(const Figures& section, std::string_view column) {
    const double value = Value(section, column);
    if (!(value > 0) || std::isinf(value))
        throw GeometryError("the figure " + std::string(column) + " is not above zero");
    return value;
}

double ValueOr(const Figures& parameters, std::string_view name, double otherwise) {
    const auto place = parameters.find(name);
    return place == parameters.end() ? otherwise : place->second;
}

FilletRadius RadiusByArea(double area, double sharp, double full, double largest) {
    return {largest * std::sqrt(std::clamp((area - sharp) / (full - sharp), 0.0, 1.0)), true};
}

void RequireMass(const Outline& outline, const Figures& parameters) {
    constexpr double Gravity = 9.80665e-3;      // N/mm for each kg/m
    constexpr double Steel = 7.85e-3 * Gravity; // N/mm for each mm^2
    constexpr double Printing = 0.05 * Gravity; // half a unit of the last digit
    constexpr double Allowed = 0.01;
    const auto mass = parameters.find("mass");
    if (mass == parameters.end())
        return;
    const auto within = parameters.find("massWithin");
    const double allowed = within == parameters.end() ? std::max(Printing, Allowed * mass->second)
                                                      : within->second * mass->second;
    Require(std::abs(outline.Area() * Steel - mass->second) <= allowed,
            "the dimensions do not give the mass (mass)");
}

Figures PlaneFigures(const Outline& outline) {
    const AxisProperties major = outline.MajorAxis();
    const AxisProperties minor = outline.MinorAxis();
    return {{"AX", outline.Area()},
            {"IZ", major.inertia},
            {"IY", minor.inertia},
            {"ZZ", major.plasticModulus},
            {"ZY", minor.plasticModulus}};
}

std::span<const GeometryModel> GetGeometryModels() {
    static const std::vector<GeometryModel> models = [] {
        std::vector<GeometryModel> all;
        for (const auto modelsOf : Subjects) {
            const auto subject = modelsOf();
            all.insert(all.end(), subject.begin(), subject.end());
        }
        return all;
    }();
    return models;
}

bool GeometryModel::Computes(std::string_view column) const {
    return std::ranges::find(computed, column, &ComputedColumn::name) != computed.end();
}

bool GeometryModel::IsToldBy(const Figures& section, const Figures& given) const {
    const auto knows = [this](const auto& figure) {
        return std::ranges::find(parameters, figure.first, &GeometryParameter::name) !=
               parameters.end();
    };
    return std::ranges::all_of(inputs,
                               [&](const char* input) { return section.contains(input); }) &&
           std::ranges::all_of(parameters,
                               [&](const GeometryParameter& parameter) {
                                   return !parameter.isRequired || given.contains(parameter.name);
                               }) &&
           std::ranges::all_of(given, knows);
}

const GeometryModel* FindGeometryModel(std::string_view name) {
    const auto models = GetGeometryModels();
    const auto place = std::ranges::find(models, name, &GeometryModel::name);
    return place == models.end() ? nullptr : &*place;
}

std::vector<JudgedFigure> JudgeFigures(const SectionGeometry& geometry, const Figures& row) {
    std::vector<JudgedFigure> judged;
    for (const auto& [column, computed] : geometry.figures)
        if (const auto given = row.find(column); given != row.end())
            judged.push_back({column, given->second, computed});
    return judged;
}

Figures CompleteFigures(const SectionGeometry& geometry, Figures row) {
    row.insert(geometry.figures.begin(), geometry.figures.end());
    return row;
}

} // namespace dbsection
