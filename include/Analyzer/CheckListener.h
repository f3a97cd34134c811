//===- CheckListener.h - the result of each part of a program ---*- C++ -*-===//

#ifndef TARKA_ANALYZER_CHECKLISTENER_H
#define TARKA_ANALYZER_CHECKLISTENER_H

namespace tarka {

class Node;

/// The parts of a compilation that pass or fail by themselves.
enum class CheckedPart {
  /// A source unit. It fails when one of its parts fails.
  Program,
  /// An entry of the environment or data division. An entry does not fail for the entries below it.
  Entry,
  /// A statement. It fails when a statement within it fails.
  Statement,
};

/// Notified by a SemanticChecker of the parts that it checks and of their results. Parts nest.
class CheckListener {
public:
  virtual ~CheckListener() = default;
  virtual void partBegins(CheckedPart kind, const Node &part) = 0;
  /// \p ok is the result of the innermost part that has begun and not ended.
  virtual void partEnds(bool ok) = 0;
};

} // namespace tarka

#endif // TARKA_ANALYZER_CHECKLISTENER_H
