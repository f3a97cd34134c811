//===- Comparison.h - what may be compared with what ----------------------===//

#ifndef TARKA_LIB_ANALYZER_COMPARISON_H
#define TARKA_LIB_ANALYZER_COMPARISON_H

namespace tarka {

class Expression;

/// Whether the two operands, both bound, may be compared for equality. Reports nothing: conditions
/// and EVALUATE each have a message of their own.
bool areComparable(const Expression &left, const Expression &right);

} // namespace tarka

#endif // TARKA_LIB_ANALYZER_COMPARISON_H
