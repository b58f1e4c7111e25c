// The formats, each written by a file of its name.
#pragma once

#include "exchange/Exchange.h"

namespace dbsection {

void WriteCalculiX(std::span<const sections::Section> sections, const ExchangeOptions& options,
                   std::ostream& file);
void WriteOpenSeesTcl(std::span<const sections::Section> sections, const ExchangeOptions& options,
                      std::ostream& file);
void WriteOpenSeesPython(std::span<const sections::Section> sections,
                         const ExchangeOptions& options, std::ostream& file);
void WriteCodeAster(std::span<const sections::Section> sections, const ExchangeOptions& options,
                    std::ostream& file);

void WriteIfc(std::span<const sections::Section> sections, const ExchangeOptions& options,
              std::ostream& file);
void WriteXlsx(std::span<const sections::Section> sections, const ExchangeOptions& options,
               std::ostream& file);

} // namespace dbsection
