#include "geometry/RowJudgement.h"

#include "platform/Text.h"

#include <algorithm>
#include <exception>
#include <optional>

namespace dbsection {
namespace {

RowJudgement JudgeBy(const GeometryModel& model, const Figures& row, const Figures& parameters,
                     double within) {
    RowJudgement judgement{&model, parameters, model.make(row, parameters), row, {}};
    judgement.row = CompleteFigures(*judgement.geometry, row);
    for (const JudgedFigure& judged : JudgeFigures(*judgement.geometry, row)) {
        FigureVerdict verdict = JudgeWithoutRules(model.layout, judged);
        verdict.tolerance = std::max(verdict.tolerance, within - verdict.printing);
        if (!verdict.IsAccepted())
            judgement.refused.push_back({judged, verdict});
    }
    return judgement;
}

/// The parameters that a model may be meant with, the likeliest first.
std::vector<Figures> LikelyParameters(const GeometryModel& model, const Figures& given) {
    constexpr std::string_view Toe = "toe";
    constexpr double UsualToe = 0.5;
    const bool isAngle = model.layout == LayoutId::Angle || model.layout == LayoutId::DoubleAngle;
    const bool hasToe = std::ranges::find(model.parameters, Toe, &GeometryParameter::name) !=
                        model.parameters.end();
    if (!isAngle || !hasToe || given.contains(Toe))
        return {given};
    Figures usual = given;
    usual.emplace(Toe, UsualToe);
    return {usual, given};
}

} // namespace

FigureVerdict JudgeWithoutRules(LayoutId layout, const JudgedFigure& judged) {
    constexpr double ThreeDigits = 0.005;
    double worth = 0;
    for (const GeometryModel& model : GetGeometryModels())
        if (model.layout == layout)
            for (const ComputedColumn& computed : model.computed)
                if (computed.name == judged.column)
                    worth = std::max(worth, computed.within);
    return {judged.Deviation(), ThreeDigits, worth, nullptr};
}

RowJudgement JudgeRow(LayoutId layout, const Figures& row, const Figures& parameters,
                      double within) {
    std::optional<RowJudgement> first; // or the accepted one
    std::exception_ptr impossible;
    const auto isAcceptedBy = [&](const GeometryModel& model, const Figures& likely) {
        try {
            RowJudgement judgement = JudgeBy(model, row, likely, within);
            if (!first || judgement.refused.empty())
                first = std::move(judgement);
            return first->refused.empty();
        } catch (const GeometryError&) {
            if (!impossible)
                impossible = std::current_exception();
            return false;
        }
    };
    for (const GeometryModel& model : GetGeometryModels())
        if (model.layout == layout && model.IsToldBy(row, parameters))
            for (const Figures& likely : LikelyParameters(model, parameters))
                if (isAcceptedBy(model, likely))
                    return *first;
    if (!first && impossible)
        std::rethrow_exception(impossible);
    return first.value_or(RowJudgement{nullptr, {}, std::nullopt, row, {}});
}

const GeometryParameter* FindParameter(LayoutId layout, std::string_view name) {
    for (const GeometryModel& model : GetGeometryModels())
        if (model.layout == layout)
            for (const GeometryParameter& parameter : model.parameters)
                if (EqualNoCase(parameter.name, name))
                    return &parameter;
    return nullptr;
}

std::vector<std::vector<std::string>> MissingFor(LayoutId layout, const Figures& row,
                                                 const Figures& parameters) {
    std::vector<std::vector<std::string>> all;
    for (const GeometryModel& model : GetGeometryModels()) {
        if (model.layout != layout)
            continue;
        std::vector<std::string> missing;
        for (const char* input : model.inputs)
            if (!row.contains(input))
                missing.emplace_back(input);
        for (const GeometryParameter& parameter : model.parameters)
            if (parameter.isRequired && !parameters.contains(parameter.name))
                missing.emplace_back(parameter.name);
        all.push_back(std::move(missing));
    }
    std::ranges::stable_sort(all, {}, &std::vector<std::string>::size);
    const auto isMore = [](const auto& more, const auto& less) {
        return std::ranges::all_of(less, [&](const std::string& name) {
            return std::ranges::find(more, name) != more.end();
        });
    };
    std::vector<std::vector<std::string>> least;
    for (const auto& missing : all)
        if (std::ranges::none_of(least, [&](const auto& less) { return isMore(missing, less); }))
            least.push_back(missing);
    return least;
}

} // namespace dbsection
