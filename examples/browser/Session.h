// What a person is looking at: a catalogue, a shape family of it, and units.
#pragma once

#include "Catalogue.h"
#include "Units.h"

#include <optional>

namespace browser {

class Session {
public:
    /// Throw Refusal when there is no such catalogue or family, or it cannot be opened; what was
    /// chosen before stays.
    void UseCatalogue(const CString& numberOrName);
    void UseFamily(const CString& numberOrName);

    /// What is chosen. Throw Refusal when nothing is.
    int Catalogue() const;
    const Family& ChosenFamily() const;

    /// The section of the family by either name. Throws Refusal.
    Section FindSection(const CString& name) const;

    /// Whether the user's selection, if there is one, holds the section.
    bool IsPreferred(const Section& section) const;

    /// "American, W Shape", as far as chosen.
    CString Place() const;

    Units units = AmericanUnits;
    bool isOver = false;

private:
    int m_catalogue = 0;
    std::optional<Family> m_family;
};

} // namespace browser
