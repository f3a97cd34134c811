//===- ReportLayout.h - where the items of a report are printed -*- C++ -*-===//
//
// The report section describes printed pages, not storage: lines and columns.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_TOOLS_REPORTLAYOUT_H
#define TARKA_TOOLS_REPORTLAYOUT_H

#include "AST/Program.h"
#include "llvm/Support/JSON.h"
#include <map>
#include <string>
#include <vector>

namespace llvm {
class raw_ostream;
} // namespace llvm

namespace tarka {

/// The columns of one printed item, from 1, both ends inclusive.
struct ColumnRange {
  long long first;
  long long last;
};

/// The columns of the items of a report. A column that is relative to the item before it is known
/// if the columns of that item are known.
class ReportColumns {
public:
  explicit ReportColumns(const ReportDescription &report);

  /// One range for every number of the COLUMN clause; none where they are not known.
  const std::vector<ColumnRange> &of(const DataDescription &entry) const;

private:
  void place(const ReportDataDescription &entry, long long &end);

  std::map<const DataDescription *, std::vector<ColumnRange>> ranges;
};

/// The positions that an item takes on paper; 0 when neither PICTURE nor VALUE tells.
long long printedWidth(const ReportDataDescription &entry);

/// The report section of \p unit as a table; nothing when it has none.
void printReportsText(llvm::raw_ostream &os, const SourceUnit &unit);
/// The value of the attribute `reports`, an array.
void printReportsJson(llvm::json::OStream &json, const SourceUnit &unit);

} // namespace tarka

#endif // TARKA_TOOLS_REPORTLAYOUT_H
