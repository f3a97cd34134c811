//===- Verbs.cpp - the scopes of statements -------------------------------===//

#include "Parse/Verbs.h"
#include "llvm/ADT/STLExtras.h"

namespace tarka {

using enum ExceptionHandlerType;

static constexpr ScopedVerb table[] = {
    {Keyword::Accept, Keyword::EndAccept, {OnException}},
    {Keyword::Add, Keyword::EndAdd, {SizeError}},
    {Keyword::Call, Keyword::EndCall, {Overflow, OnException}},
    {Keyword::Compute, Keyword::EndCompute, {SizeError}},
    {Keyword::Delete, Keyword::EndDelete, {InvalidKey}},
    {Keyword::Display, Keyword::EndDisplay, {OnException}},
    {Keyword::Divide, Keyword::EndDivide, {SizeError}},
    {Keyword::Evaluate, Keyword::EndEvaluate, {}},
    {Keyword::If, Keyword::EndIf, {}},
    {Keyword::Invoke, Keyword::EndInvoke, {OnException}},
    {Keyword::Json, Keyword::EndJson, {OnException}},
    {Keyword::Multiply, Keyword::EndMultiply, {SizeError}},
    {Keyword::Perform, Keyword::EndPerform, {}},
    {Keyword::Read, Keyword::EndRead, {AtEnd, InvalidKey}},
    {Keyword::Receive, Keyword::EndReceive, {}},
    {Keyword::Return, Keyword::EndReturn, {AtEnd}},
    {Keyword::Rewrite, Keyword::EndRewrite, {InvalidKey}},
    {Keyword::Search, Keyword::EndSearch, {AtEnd}},
    {Keyword::Start, Keyword::EndStart, {InvalidKey}},
    {Keyword::String, Keyword::EndString, {Overflow}},
    {Keyword::Subtract, Keyword::EndSubtract, {SizeError}},
    {Keyword::Unstring, Keyword::EndUnstring, {Overflow}},
    {Keyword::Write, Keyword::EndWrite, {InvalidKey, EndOfPage}},
    {Keyword::Xml, Keyword::EndXml, {OnException}},
};

llvm::ArrayRef<ScopedVerb> scopedVerbs() {
  return table;
}

const ScopedVerb *scopeOf(Keyword verb) {
  const auto *found =
      llvm::find_if(table, [verb](const ScopedVerb &scoped) { return scoped.verb == verb; });
  return found == std::end(table) ? nullptr : found;
}

Keyword verbOfEnd(Keyword endWord) {
  const auto *found = llvm::find_if(
      table, [endWord](const ScopedVerb &scoped) { return scoped.endWord == endWord; });
  return found == std::end(table) ? Keyword::None : found->verb;
}

} // namespace tarka
