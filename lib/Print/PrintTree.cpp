//===- PrintTree.cpp - the checked tree as text and JSON ------------------===//
//
// The two sinks, and the walk over divisions, entries and procedures.
//
//===----------------------------------------------------------------------===//

#include "Print/PrintTree.h"
#include "Analyzer/TopLevel.h"
#include "Print/JsonVersion.h"
#include "Print/LayoutModel.h"
#include "Print/TreePrinter.h"
#include "Report/Utf8.h"
#include "llvm/ADT/STLExtras.h"
#include "llvm/ADT/SmallVector.h"
#include "llvm/ADT/StringExtras.h"
#include "llvm/Support/JSON.h"
#include "llvm/Support/raw_ostream.h"

namespace tarka {

namespace {

//===----------------------------------------------------------------------===//
// Text
//===----------------------------------------------------------------------===//

/// role: Kind <line:column-line:column> name=value ...
class TextSink : public TreeSink {
public:
  TextSink(llvm::raw_ostream &out, llvm::StringRef mainFile) : os(out), file(mainFile) {}
  ~TextSink() override { os << '\n'; }

  void open(llvm::StringRef role, llvm::StringRef kind, const SourceRange &place) override {
    if (!isFirst)
      os << '\n';
    isFirst = false;
    os.indent(2 * depth++);
    if (!role.empty())
      os << role << ": ";
    os << kind;
    if (place.beginLine) {
      os << " <";
      begin(place);
      os << '-' << place.endLine << ':' << place.endColumn << '>';
    }
  }
  void close() override { --depth; }

  void text(llvm::StringRef name, llvm::StringRef value) override {
    os << ' ' << name << '=';
    // A value stays on its line.
    for (char c : value)
      os << (c == '\n' || c == '\r' ? ' ' : c);
  }
  void texts(llvm::StringRef name, llvm::ArrayRef<llvm::StringRef> values) override {
    os << ' ' << name << "=[" << llvm::join(values, ", ") << ']';
  }
  void number(llvm::StringRef name, std::int64_t value) override {
    os << ' ' << name << '=' << value;
  }
  void numbers(llvm::StringRef name, llvm::ArrayRef<std::int64_t> values) override {
    os << ' ' << name << "=[";
    llvm::interleaveComma(values, os);
    os << ']';
  }
  void flag(llvm::StringRef name) override { os << ' ' << name; }
  void target(llvm::StringRef name, const TreeTarget &to) override {
    os << ' ' << name << '=';
    tell(to);
  }
  void targets(llvm::StringRef name, llvm::ArrayRef<TreeTarget> to) override {
    os << ' ' << name << "=[";
    llvm::interleaveComma(to, os, [&](const TreeTarget &one) { tell(one); });
    os << ']';
  }

private:
  void tell(const TreeTarget &to) {
    os << to.name;
    if (to.place.beginLine) {
      os << '@';
      begin(to.place);
    }
  }
  void begin(const SourceRange &place) {
    if (const std::string &name = fileNameOf(place.file); name != file)
      os << name << ':';
    os << place.beginLine << ':' << place.beginColumn;
  }

  llvm::raw_ostream &os;
  llvm::StringRef file;
  unsigned depth = 0;
  bool isFirst = true;
};

//===----------------------------------------------------------------------===//
// JSON
//===----------------------------------------------------------------------===//

class JsonSink : public TreeSink {
public:
  JsonSink(llvm::raw_ostream &out, llvm::StringRef mainFile) : json(out, 2), file(mainFile) {}

  void open(llvm::StringRef role, llvm::StringRef kind, const SourceRange &place) override {
    if (!hasChildren.empty() && !hasChildren.back()) {
      hasChildren.back() = true;
      json.attributeBegin("children");
      json.arrayBegin();
    }
    const bool isRoot = hasChildren.empty();
    hasChildren.push_back(false);
    json.objectBegin();
    if (isRoot)
      printVersion(json);
    json.attribute("kind", kind);
    if (!role.empty())
      json.attribute("role", role);
    if (place.beginLine)
      json.attributeObject("place", [&] {
        begin(place);
        json.attribute("endLine", place.endLine);
        json.attribute("endColumn", place.endColumn);
      });
  }
  void close() override {
    if (hasChildren.pop_back_val()) {
      json.arrayEnd();
      json.attributeEnd();
    }
    json.objectEnd();
  }

  void text(llvm::StringRef name, llvm::StringRef value) override {
    json.attribute(name, toUtf8(value));
  }
  void texts(llvm::StringRef name, llvm::ArrayRef<llvm::StringRef> values) override {
    json.attributeArray(name, [&] {
      for (llvm::StringRef value : values)
        json.value(value);
    });
  }
  void number(llvm::StringRef name, std::int64_t value) override { json.attribute(name, value); }
  void numbers(llvm::StringRef name, llvm::ArrayRef<std::int64_t> values) override {
    json.attributeArray(name, [&] {
      for (std::int64_t value : values)
        json.value(value);
    });
  }
  void flag(llvm::StringRef name) override { json.attribute(name, true); }
  void target(llvm::StringRef name, const TreeTarget &to) override {
    json.attributeBegin(name);
    tell(to);
    json.attributeEnd();
  }
  void targets(llvm::StringRef name, llvm::ArrayRef<TreeTarget> to) override {
    json.attributeArray(name, [&] {
      for (const TreeTarget &one : to)
        tell(one);
    });
  }

private:
  void tell(const TreeTarget &to) {
    json.object([&] {
      json.attribute("name", toUtf8(to.name));
      if (to.place.beginLine)
        begin(to.place);
    });
  }
  void begin(const SourceRange &place) {
    if (const std::string &name = fileNameOf(place.file); name != file)
      json.attribute("file", toUtf8(name));
    json.attribute("line", place.beginLine);
    json.attribute("column", place.beginColumn);
  }

  llvm::json::OStream json;
  llvm::StringRef file;
  /// For every open node whether its array of children is open.
  llvm::SmallVector<bool, 32> hasChildren;
};

} // namespace

void printTreeText(llvm::raw_ostream &os, Program &program, llvm::StringRef file) {
  TextSink sink(os, file);
  TreePrinter(sink).print(program);
}

void printTreeJson(llvm::raw_ostream &os, Program &program, llvm::StringRef file) {
  {
    JsonSink sink(os, file);
    TreePrinter(sink).print(program);
  }
  os << '\n';
}

//===----------------------------------------------------------------------===//
// Programs
//===----------------------------------------------------------------------===//

void TreePrinter::print(Program &program) {
  Open node(sink, "", "Program");
  sink.text("name", program.getInputName());
  all("", program.getSourceUnitListElements());
  // The moves that report declaratives need.
  all("generated", listOrEmpty(TopLevel::getTopLevelInstance("")->getDummyListUsedMove()));
}

void TreePrinter::words(llvm::StringRef role, const NodeList<Word> &list) {
  llvm::SmallVector<llvm::StringRef, 8> names;
  for (const Word *word : list)
    names.push_back(word->getDisplayName());
  sink.texts(role, names);
}

void TreePrinter::print(llvm::StringRef role, SourceUnit &unit) {
  Open node(sink, role, "SourceUnit", unit.getRange());
  sink.text("name", programName(unit));
  const ProgramIdParagraph &id = *unit.getIDDivision()->getProgramIDPara();
  flag("common", id.getType() == ProgramIdType::Common);
  flag("initial", id.getType() == ProgramIdType::Initial || id.isInitial());
  flag("recursive", id.getType() == ProgramIdType::Recursive || id.isRecursive());
  llvm::SmallVector<llvm::StringRef, 8> callable(unit.getCallableList().begin(),
                                                 unit.getCallableList().end());
  if (!callable.empty())
    sink.texts("callable", callable);
  one("", unit.getEnvironmentDivision());
  one("", unit.getDataDivision());
  all("block", unit.getDataBlockElements());
  one("", unit.getProcDivision());
  all("nested", unit.getNestedListElements());
}

//===----------------------------------------------------------------------===//
// Data
//===----------------------------------------------------------------------===//

void TreePrinter::print(llvm::StringRef role, DataDivision &division) {
  Open node(sink, role, "DataDivision", division.getRange());
  auto section = [&](llvm::StringRef kind, const auto &entries) {
    if (entries.empty())
      return;
    Open inner(sink, "", kind);
    all("", entries);
  };
  section("FileSection", division.getFileSectionElements());
  section("WorkingStorageSection", listOrEmpty(division.getWorkSection()));
  section("LocalStorageSection", division.getLocalSectionElements());
  section("LinkageSection", division.getLinkSectionElements());
  section("ReportSection", division.getReportSectionElements());
}

void TreePrinter::print(llvm::StringRef role, FileDescription &file) {
  Open node(sink, role, "FileDescription", file.getRange());
  name("name", file.getFileName());
  flag("sortMerge", file.getType() == FileDescType::SortMerge);
  flag("global", file.getGlobal() != nullptr);
  clauses(file);
  for (auto record = file.getDataRecordDescBegin(); record != file.getDataRecordDescEnd(); ++record)
    print("", **record);
}

void TreePrinter::print(llvm::StringRef role, ReportDescription &report) {
  Open node(sink, role, "ReportDescription", report.getRange());
  name("name", report.getReportName());
  flag("global", report.getGlobal() != nullptr);
  properties(report);
  clauses(report);
  for (auto record = report.getRecordListBegin(); record != report.getRecordListEnd(); ++record)
    print("", **record);
}

void TreePrinter::print(llvm::StringRef role, DataDescription &entry) {
  Open node(sink, role,
            entry.getType() == DescType::Report ? "ReportDataDescription" : "DataDescription",
            entry.getRange());
  sink.number("level", entry.getLevelNum());
  sink.text("name", entryName(entry));
  if (llvm::StringRef category = nameOf(entry.getDataCategory()); !category.empty())
    sink.text("category", category);
  sink.text("usage", nameOf(entry.getUsageType()));
  if (const ClausePicture *picture = entry.getPicture()) {
    name("picture", picture->getCharStringWord());
    if (picture->getDigitNum()) {
      sink.number("digits", picture->getDigitNum());
      sink.number("scale", picture->getScale());
    }
    if (LiteralExpression *sign = picture->getCurrencySymbolLiteral())
      sink.text("currencySign", literalText(*sign));
  }
  this->entry("redefines", entry.getRedefineObject());
  if (entry.getAccessWay())
    sink.number("accessWay", entry.getAccessWay());
  flag("compilerMade", !entry.isWritten());
  properties(entry);
  auto *reportEntry =
      entry.getType() == DescType::Report ? static_cast<ReportDataDescription *>(&entry) : nullptr;
  if (reportEntry)
    properties(*reportEntry);
  clauses(entry);
  if (reportEntry)
    clauses(*reportEntry);
  all("conditionName", entry.getCondNameChildrenElements());
  all("", entry.getChildrenElements());
}

//===----------------------------------------------------------------------===//
// Procedures
//===----------------------------------------------------------------------===//

void TreePrinter::print(llvm::StringRef role, ProcedureDivision &division) {
  Open node(sink, role, "ProcedureDivision", division.getRange());
  all("using", division.getParameterElements());
  if (Returning *returning = division.getReturning())
    one("returning", returning->getReturnItem());
  all("", division.getDeclElements());
  all("", division.getSentElements());
  all("", division.getParaElements());
  all("", division.getSectElements());
}

void TreePrinter::print(llvm::StringRef role, Declaratives &declarative) {
  Open node(sink, role, "Declaratives", declarative.getRange());
  one("use", static_cast<Statement *>(declarative.getUseStmt()));
  one("", declarative.getSection());
}

void TreePrinter::print(llvm::StringRef role, Section &section) {
  Open node(sink, role, "Section", section.getRange());
  name("name", section.getSectionName());
  if (section.isPerformThru())
    sink.number("endOfPerformAt", section.getPerformLine());
  one("priority", static_cast<Expression *>(section.getPriorityNumExpr()));
  all("", section.getSentElements());
  all("", section.getParaElements());
}

void TreePrinter::print(llvm::StringRef role, Paragraph &paragraph) {
  Open node(sink, role, "Paragraph", paragraph.getRange());
  name("name", paragraph.getParagraphName());
  if (paragraph.isPerformThru())
    sink.number("endOfPerformAt", paragraph.getPerformLine());
  all("", paragraph.getSentElements());
}

void TreePrinter::print(llvm::StringRef role, Sentence &sentence) {
  Open node(sink, role, "Sentence", sentence.getRange());
  all("", sentence.getStmtElements());
}

} // namespace tarka
