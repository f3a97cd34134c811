//===- StatementNames.cpp - what statements are called --------------------===//

#include "AST/StatementNames.h"
#include <array>

namespace tarka {

namespace {

struct StatementName {
  StatementType kind;
  llvm::StringLiteral className;
  llvm::StringLiteral verb;
};

constexpr StatementName statementNames[] = {
    {StatementType::Accept, "AcceptStatement", "ACCEPT"},
    {StatementType::Add, "AddStatement", "ADD"},
    {StatementType::Alter, "AlterStatement", "ALTER"},
    {StatementType::Call, "CallStatement", "CALL"},
    {StatementType::Cancel, "CancelStatement", "CANCEL"},
    {StatementType::Close, "CloseStatement", "CLOSE"},
    {StatementType::Compute, "ComputeStatement", "COMPUTE"},
    {StatementType::Continue, "ContinueStatement", "CONTINUE"},
    {StatementType::Delete, "DeleteStatement", "DELETE"},
    {StatementType::Display, "DisplayStatement", "DISPLAY"},
    {StatementType::Divide, "DivideStatement", "DIVIDE"},
    {StatementType::Entry, "EntryStatement", "ENTRY"},
    {StatementType::Evaluate, "EvaluateStatement", "EVALUATE"},
    {StatementType::Exit, "ExitStatement", "EXIT"},
    {StatementType::ExitProgram, "ExitProgramStatement", "EXIT PROGRAM"},
    {StatementType::Goto, "GotoStatement", "GO TO"},
    {StatementType::Goback, "GobackStatement", "GOBACK"},
    {StatementType::If, "IfStatement", "IF"},
    {StatementType::Initialize, "InitializeStatement", "INITIALIZE"},
    {StatementType::Inspect, "InspectStatement", "INSPECT"},
    {StatementType::Merge, "MergeStatement", "MERGE"},
    {StatementType::Move, "MoveStatement", "MOVE"},
    {StatementType::Multiply, "MultiplyStatement", "MULTIPLY"},
    {StatementType::Open, "OpenStatement", "OPEN"},
    {StatementType::Perform, "PerformStatement", "PERFORM"},
    {StatementType::Read, "ReadStatement", "READ"},
    {StatementType::Release, "ReleaseStatement", "RELEASE"},
    {StatementType::Return, "ReturnStatement", "RETURN"},
    {StatementType::Rewrite, "RewriteStatement", "REWRITE"},
    {StatementType::Search, "SearchStatement", "SEARCH"},
    {StatementType::Set, "SetStatement", "SET"},
    {StatementType::Sort, "SortStatement", "SORT"},
    {StatementType::Start, "StartStatement", "START"},
    {StatementType::Stop, "StopStatement", "STOP"},
    {StatementType::String, "StringStatement", "STRING"},
    {StatementType::Subtract, "SubtractStatement", "SUBTRACT"},
    {StatementType::Unstring, "UnstringStatement", "UNSTRING"},
    {StatementType::Use, "UseStatement", "USE"},
    {StatementType::Write, "WriteStatement", "WRITE"},
    {StatementType::XmlGenerate, "XMLGenerateStatement", "XML GENERATE"},
    {StatementType::XmlParse, "XMLParseStatement", "XML PARSE"},
    {StatementType::NextSentence, "NextSentenceStatement", "NEXT SENTENCE"},
    {StatementType::ExitParagraph, "ExitParagraphStatement", "EXIT PARAGRAPH"},
    {StatementType::ExitSection, "ExitSectionStatement", "EXIT SECTION"},
    {StatementType::InnerBranch, "InnerBranchStatement", "branch to declarative"},
    {StatementType::InnerExit, "InnerExitStatement", "return to performer"},
    {StatementType::InnerRegisterException, "InnerRegisterExceptionStatement",
     "register declarative"},
    {StatementType::InnerWhen, "InnerWhenStatement", "when"},
    {StatementType::InnerSearchWhen, "InnerSearchWhenStatement", "search when"},
    {StatementType::Exec, "ExecStatement", "EXEC"},
    {StatementType::Trace, "TraceStatement", "TRACE"},
    {StatementType::RwGenerate, "RwGenerateStatement", "GENERATE"},
    {StatementType::RwInitiate, "RwInitiateStatement", "INITIATE"},
    {StatementType::RwTerminate, "RwTerminateStatement", "TERMINATE"},
    {StatementType::RwSuppress, "RwSuppressStatement", "SUPPRESS"},
    {StatementType::ExitPerform, "ExitPerformStatement", "EXIT PERFORM"},
    {StatementType::On, "OnStatement", "ON"},
    {StatementType::Transform, "TransformStatement", "TRANSFORM"},
    {StatementType::Examine, "ExamineStatement", "EXAMINE"},
    {StatementType::Exhibit, "ExhibitStatement", "EXHIBIT"},
};

const StatementName *nameOf(StatementType kind) {
  // The table by kind code, made on first use.
  static const auto *byKind = [] {
    auto *table = new std::array<const StatementName *, 256>{};
    for (const StatementName &name : statementNames)
      (*table)[static_cast<std::uint8_t>(name.kind)] = &name;
    return table;
  }();
  return (*byKind)[static_cast<std::uint8_t>(kind)];
}

} // namespace

llvm::StringRef classNameOf(StatementType kind) {
  const StatementName *name = nameOf(kind);
  return name ? llvm::StringRef(name->className) : "Statement";
}

llvm::StringRef verbOf(StatementType kind) {
  const StatementName *name = nameOf(kind);
  return name ? llvm::StringRef(name->verb) : "";
}

} // namespace tarka
