// The section records of the catalogues: one type a catalogue, with one record a shape family.
//
//     const auto& beam = dynamic_cast<const EUROPEANSECTION::IPEShape&>(*record);
//     double depth = beam.D; // in the unit of the table's column D
//
// Families alike are alike in their records: each is the record of the family's layout. Types and
// families are those of Catalogues.def.
#pragma once

#include "records/LayoutRecords.h"

#define SECTION_CATALOGUE(index, Class, Record, stem, name, density) struct Record {
#define SECTION_FAMILY(member, layout, table, type) using member = layout##Record;
#define SECTION_END_CATALOGUE(index)                                                               \
    }                                                                                              \
    ;
#include "records/Catalogues.def"
