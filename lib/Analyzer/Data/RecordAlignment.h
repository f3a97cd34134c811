//===- RecordAlignment.h - slack bytes as in Enterprise COBOL ---*- C++ -*-===//

#ifndef TARKA_LIB_ANALYZER_RECORDALIGNMENT_H
#define TARKA_LIB_ANALYZER_RECORDALIGNMENT_H

#include <cstdint>

namespace tarka {

class DataDescription;

/// An entry called SLACK-BYTES that fills \p bytes. It is an item like any other afterwards, so it
/// is not marked as made by the compiler.
DataDescription *makeSlackEntry(unsigned level, std::int64_t bytes);

/// The boundary, in bytes, on which a SYNCHRONIZED item of the usage of \p entry starts; 0 when the
/// usage has none.
int boundaryOf(const DataDescription &entry);

/// SYNCHRONIZED of the level 01 group \p record becomes a clause of every elementary item in it
/// that has none.
void synchronizeItems(DataDescription &record);

/// Inserts the slack bytes that place the SYNCHRONIZED items of \p record on their boundaries, and
/// notes the offsets that result. All clauses of the items must be settled.
void alignRecord(DataDescription &record);

} // namespace tarka

#endif // TARKA_LIB_ANALYZER_RECORDALIGNMENT_H
