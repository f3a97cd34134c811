//===- OpenConstructs.h - the constructs being parsed -----------*- C++ -*-===//
//
// A parse function that continues after a mistake must know that there was one: the
// construct is not complete, and a part that seems to be missing may be there.
// Mistakes in the syntax are found by the parser, those in the text by the token
// stream; both are noted here.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_LIB_PARSE_OPENCONSTRUCTS_H
#define TARKA_LIB_PARSE_OPENCONSTRUCTS_H

namespace tarka {

/// The constructs that are being parsed, one within the other.
class OpenConstructs {
public:
  /// Notes a mistake in the innermost construct, whether it is reported or suppressed.
  void noteMistake() {
    if (innermost)
      innermost->mistake = true;
  }

  /// Whether a mistake was noted in the innermost construct.
  bool isInnermostDamaged() const { return innermost && innermost->mistake; }

  /// A construct, which is being parsed as long as the scope lives.
  class Scope {
  public:
    explicit Scope(OpenConstructs &owner) : constructs(owner), outer(owner.innermost) {
      constructs.innermost = this;
    }
    ~Scope() {
      constructs.innermost = outer;
      if (mistake)
        constructs.noteMistake();
    }
    Scope(const Scope &) = delete;
    Scope &operator=(const Scope &) = delete;

    /// Whether a mistake was found since the scope began. Only to be called for the innermost
    /// construct.
    bool hasMistake() const { return mistake; }

  private:
    friend OpenConstructs;
    OpenConstructs &constructs;
    Scope *outer;
    bool mistake = false;
  };

private:
  Scope *innermost = nullptr;
};

} // namespace tarka

#endif // TARKA_LIB_PARSE_OPENCONSTRUCTS_H
