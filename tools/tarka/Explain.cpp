//===- Explain.cpp - tarka explain ----------------------------------------===//

#include "Explain.h"
#include "Analyzer/EnterpriseRules.h"
#include "Driver.h"
#include "Explanations.h"
#include "OutputFile.h"
#include "ProgramRun.h"
#include "Workers/Interrupt.h"
#include "llvm/ADT/STLExtras.h"
#include "llvm/ADT/StringExtras.h"
#include "llvm/Support/Format.h"
#include "llvm/Support/JSON.h"
#include "llvm/Support/MemoryBuffer.h"
#include "llvm/Support/VirtualFileSystem.h"
#include "llvm/Support/raw_ostream.h"

namespace tarka {

namespace {

/// Wide enough to read, and for a line of fixed form with its number.
constexpr std::size_t textWidth = 92;

std::vector<const DiagnosticRow *> rowsOf(unsigned number) {
  std::vector<const DiagnosticRow *> rows;
  for (const DiagnosticRow &row : diagnosticRows())
    if (row.number == number)
      rows.push_back(&row);
  return rows;
}

/// Prints words in lines of textWidth.
void printWrapped(llvm::raw_ostream &out, llvm::StringRef text) {
  llvm::SmallVector<llvm::StringRef, 64> words;
  llvm::SplitString(text, words);
  std::size_t column = 0;
  for (llvm::StringRef word : words) {
    if (column && column + 1 + word.size() > textWidth) {
      out << '\n';
      column = 0;
    }
    if (column) {
      out << ' ';
      ++column;
    }
    out << word;
    column += word.size();
  }
  out << '\n';
}

/// The report that the program of \p explanation draws, which is compiled from memory for that.
void printReport(llvm::raw_ostream &out, const Explanation &explanation) {
  std::vector<std::string> words = {"tarka", "check"};
  llvm::append_range(words, explanation.options);
  words.push_back(programFileName);
  std::vector<char *> arguments;
  arguments.reserve(words.size());
  for (std::string &word : words)
    arguments.push_back(word.data());
  CommandLineResult line = readCommandLine(static_cast<int>(arguments.size()), arguments.data());
  if (!line.request)
    return;

  auto files = llvm::makeIntrusiveRefCnt<llvm::vfs::InMemoryFileSystem>();
  for (const ProgramFile &file : explanation.files)
    for (unsigned number = 1; number <= file.getCount(); ++number)
      files->addFile(file.nameOf(number), 0,
                     llvm::MemoryBuffer::getMemBufferCopy(
                         file.sourceOf(ProgramVersion::Wrong, number), file.nameOf(number)));
  line.request->parse.fileSystem = files;
  writeReport(*line.request, out);
}

/// What a copybook is called, or the several that one stands for.
std::string describe(const ProgramFile &file) {
  if (file.getCount() == 1)
    return ("the file " + file.getName()).str();
  return ("the files " + file.getName() + ", # from 1 to " + llvm::Twine(file.getCount())).str();
}

/// The files of one version with numbered lines; a mark stands before those that differ.
void printProgram(llvm::raw_ostream &out, const Explanation &explanation, ProgramVersion version) {
  bool isFirst = true;
  for (const ProgramFile &file : explanation.files) {
    if (!isFirst)
      out << "\n  and in " << describe(file) << ":\n\n";
    isFirst = false;
    for (const ProgramLine &line : file.linesOf(version)) {
      out << (line.differs ? "> " : "  ") << llvm::format_decimal(line.number, 4);
      if (!line.text.empty())
        out << "  " << line.text;
      out << '\n';
    }
  }
}

void printText(llvm::raw_ostream &out, const DiagnosticRow &row) {
  out << row.number << ' ' << severityName(row.severity) << ": " << row.shownMessage() << '\n';
  std::optional<Explanation> explanation = explanationOf(row.name);
  if (!explanation)
    return;
  out << '\n';
  printWrapped(out, explanation->rule);

  if (!explanation->neverIssued.empty()) {
    out << '\n';
    printWrapped(out, "No program causes this diagnostic. " + explanation->neverIssued);
  } else {
    out << "\nThis program breaks the rule";
    if (!explanation->options.empty())
      out << ", checked with " << llvm::join(explanation->options, " ");
    out << ":\n\n";
    printProgram(out, *explanation, ProgramVersion::Wrong);
    out << "\nIts report:\n\n";
    printReport(out, *explanation);
    out << "\nThe same program mended:\n\n";
    printProgram(out, *explanation, ProgramVersion::Mended);
  }

  if (!explanation->related.empty()) {
    out << "\nSee also:\n\n";
    for (unsigned number : explanation->related)
      for (const DiagnosticRow *other : rowsOf(number))
        out << "  " << other->number << ' ' << severityName(other->severity) << ": "
            << other->shownMessage() << '\n';
  }
}

void printList(llvm::raw_ostream &out) {
  for (const DiagnosticRow &row : diagnosticRows())
    out << llvm::format_decimal(row.number, 4) << ' '
        << llvm::left_justify(severityName(row.severity), 7) << ' '
        << llvm::StringRef(row.shownMessage()).trim() << '\n';
}

void printFilesJson(llvm::json::OStream &json, const Explanation &explanation,
                    ProgramVersion version) {
  for (const ProgramFile &file : explanation.files)
    for (unsigned number = 1; number <= file.getCount(); ++number)
      json.object([&] {
        json.attribute("name", file.nameOf(number));
        json.attribute("text", version == ProgramVersion::Wrong ? file.verifiedSource(number)
                                                                : file.sourceOf(version, number));
      });
}

void printDiagnosticJson(llvm::json::OStream &json, const DiagnosticRow &row) {
  json.object([&] {
    json.attribute("name", row.name);
    json.attribute("number", row.number);
    json.attribute("severity", severityName(row.severity));
    json.attribute("message", row.message);
    std::optional<Explanation> explanation = explanationOf(row.name);
    if (!explanation)
      return;
    json.attribute("rule", explanation->rule);
    if (!explanation->neverIssued.empty()) {
      json.attribute("neverIssued", explanation->neverIssued);
    } else {
      json.attribute("options", llvm::json::Array(explanation->options));
      json.attributeArray("wrong",
                          [&] { printFilesJson(json, *explanation, ProgramVersion::Wrong); });
      json.attributeArray("mended",
                          [&] { printFilesJson(json, *explanation, ProgramVersion::Mended); });
    }
    json.attribute("related", llvm::json::Array(explanation->related));
  });
}

void printJson(llvm::raw_ostream &out, llvm::ArrayRef<const DiagnosticRow *> rows) {
  llvm::json::OStream json(out, 2);
  json.object([&] {
    json.attributeArray("diagnostics", [&] {
      for (const DiagnosticRow *row : rows)
        printDiagnosticJson(json, *row);
    });
  });
  out << '\n';
}

/// Both versions in one, as a list of differences shows them, with the numbers that are drawn.
void printDifferencesMarkdown(llvm::raw_ostream &out, const ProgramFile &file) {
  out << "```diff\n";
  for (llvm::StringRef line : file.markedLines()) {
    std::optional<std::string> text = withoutExpectation(line.drop_front());
    if (!text)
      continue;
    out << line.take_front() << *text;
    if (llvm::StringRef numbers = line.split("*> expect: ").second; !numbers.empty())
      out << "  *> " << numbers;
    out << '\n';
  }
  out << "```\n";
}

void printLinksMarkdown(llvm::raw_ostream &out, llvm::ArrayRef<unsigned> numbers) {
  llvm::ListSeparator comma;
  for (unsigned number : numbers)
    out << comma << '[' << number << "](#" << number << ')';
}

void printDiagnosticMarkdown(llvm::raw_ostream &out, const DiagnosticRow &row) {
  std::optional<Explanation> explanation = explanationOf(row.name);
  out << "\n### " << row.number << "\n\n**" << severityName(row.severity) << ":** `"
      << llvm::StringRef(row.shownMessage()).trim() << "`\n";
  if (!explanation)
    return;
  out << '\n';
  printWrapped(out, explanation->rule);
  if (!explanation->neverIssued.empty())
    out << "\n[Never issued](#never-issued-and-why).\n";
  if (!explanation->options.empty())
    out << "\nWith `" << llvm::join(explanation->options, " ") << "`:\n";
  bool isFirst = true;
  for (const ProgramFile &file : explanation->files) {
    if (!isFirst)
      out << "\nIn " << describe(file) << ":\n";
    isFirst = false;
    out << '\n';
    printDifferencesMarkdown(out, file);
  }
  if (!explanation->related.empty()) {
    out << "\nSee also ";
    printLinksMarkdown(out, explanation->related);
    out << ".\n";
  }
}

void printMarkdown(llvm::raw_ostream &out, llvm::ArrayRef<const DiagnosticRow *> rows) {
  out << "# Diagnostics\n\n"
         "Made by `tarka explain --format=markdown` from the files of `explanations/`; `make docs` "
         "makes it\n"
         "again.\n\n"
         "Every diagnostic has a rule and a program in two versions. Lines with `-` are those of "
         "the program\n"
         "that breaks the rule, lines with `+` those of the same program mended; numbers in "
         "comments tell what\n"
         "the wrong one draws there. `tarka explain NUMBER` shows both whole, with the report.\n\n"
         "Numbers below 1000 are the front end's, the others those of the checks. A few numbers "
         "stand for two\n"
         "diagnostics, which their texts tell apart.\n\n"
         "## Never issued, and why\n\n";
  for (const DiagnosticRow *row : rows)
    if (std::optional<Explanation> explanation = explanationOf(row->name))
      if (!explanation->neverIssued.empty())
        out << "- [" << row->number << "](#" << row->number << "): " << explanation->neverIssued
            << '\n';

  auto printPart = [&](llvm::StringRef title, auto belongs) {
    out << "\n## " << title << '\n';
    for (const DiagnosticRow *row : rows)
      if (belongs(row->number))
        printDiagnosticMarkdown(out, *row);
  };
  printPart("Of the front end", [](unsigned number) { return number < 1000; });
  printPart("Of the checks", [](unsigned number) { return number >= 1000; });
}

/// The rows that the command line names. False, after a message, when there are none of a number.
bool findRows(const Request &request, std::vector<const DiagnosticRow *> &rows) {
  for (const std::string &word : request.numbers) {
    unsigned number = 0;
    std::vector<const DiagnosticRow *> found;
    if (!llvm::StringRef(word).getAsInteger(10, number))
      found = rowsOf(number);
    if (found.empty()) {
      llvm::errs() << "tarka: there is no diagnostic " << word
                   << "; tarka explain without a number lists all\n";
      return false;
    }
    llvm::append_range(rows, found);
  }
  if (request.numbers.empty())
    for (const DiagnosticRow &row : diagnosticRows())
      rows.push_back(&row);
  return true;
}

//===----------------------------------------------------------------------===//
// The rules of --enterprise
//===----------------------------------------------------------------------===//

void printEnterpriseRules(llvm::raw_ostream &out, OutputFormat format) {
  if (format == OutputFormat::Json) {
    llvm::json::OStream json(out, 2);
    json.object([&] {
      json.attributeArray("enterpriseRules", [&] {
        for (const EnterpriseRuleRow &row : enterpriseRules())
          json.object([&] {
            json.attribute("name", row.name);
            json.attribute("rule", row.sentence);
          });
      });
    });
    out << '\n';
    return;
  }
  if (format == OutputFormat::Markdown) {
    out << "| Rule | With `--enterprise` |\n|---|---|\n";
    for (const EnterpriseRuleRow &row : enterpriseRules())
      out << "| " << row.name << " | " << row.sentence << " |\n";
    return;
  }
  printWrapped(out, "With --enterprise the checks follow Enterprise COBOL in these cases. The "
                    "diagnostics in parentheses are not reported for them.");
  for (const EnterpriseRuleRow &row : enterpriseRules()) {
    out << '\n' << row.name << '\n';
    printWrapped(out, row.sentence);
  }
}

} // namespace

std::string explanationPage(unsigned number) {
  std::string page;
  llvm::raw_string_ostream out(page);
  for (const DiagnosticRow *row : rowsOf(number))
    printDiagnosticMarkdown(out, *row);
  return llvm::StringRef(page).ltrim().str();
}

int explain(const Request &request) {
  const bool isAboutEnterprise =
      request.numbers.size() == 1 && request.numbers.front() == "enterprise";
  std::vector<const DiagnosticRow *> rows;
  if (!isAboutEnterprise && !findRows(request, rows))
    return ExitUnusable;

  CommandOutput output(request.output);
  if (!output.isOpen())
    return ExitInternal;
  llvm::raw_ostream &out = output.stream();
  int status = ExitClean;
  if (isAboutEnterprise)
    printEnterpriseRules(out, request.format);
  else if (request.format == OutputFormat::Json)
    printJson(out, rows);
  else if (request.format == OutputFormat::Markdown)
    printMarkdown(out, rows);
  else if (request.numbers.empty())
    printList(out);
  else if (rows.size() == 1)
    printText(out, *rows.front());
  else {
    // There is one compilation in a process.
    auto next = [&, row = rows.begin()]() mutable -> std::optional<std::string> {
      return row == rows.end() ? std::nullopt : std::optional<std::string>((*row++)->name);
    };
    auto explainOne = [&](const std::string &name, llvm::raw_ostream &answer) -> int {
      const DiagnosticRow *row =
          *llvm::find_if(rows, [&](const DiagnosticRow *one) { return one->name == name; });
      if (row != rows.front())
        answer << '\n' << std::string(textWidth, '-') << "\n\n";
      printText(answer, *row);
      return ExitClean;
    };
    const int signal = runPrograms(request, next, explainOne, [&](const ProgramResult &result) {
      out << result.answer;
      if (!result.failure.empty())
        llvm::errs() << "tarka: " << result.file << ": " << result.failure << '\n';
      status = std::max(status, result.exitStatus);
      return true;
    });
    if (signal)
      endBySignal(signal);
  }
  return output.finish("explanation") ? status : ExitInternal;
}

} // namespace tarka
