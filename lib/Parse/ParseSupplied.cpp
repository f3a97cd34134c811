//===- ParseSupplied.cpp - what CICS and DB2 add to a program -------------===//
//
// A program of CICS or DB2 uses items that it does not declare: the translator
// and the precompiler put them into its source. Here they are read from supplied
// text into the tree, when the program does not have them.
//
//===----------------------------------------------------------------------===//

#include "Parse/ParseSupplied.h"
#include "Parse/SuppliedText.h"
#include "llvm/ADT/StringSwitch.h"

namespace tarka {

/// The EXEC interface block and the communication area are there for the programs that are nested
/// in the outermost one as well.
void SuppliedParser::supplyInterfaceBlock() {
  if (!stream.getOptions().cics || context.unit->getParent())
    return;
  for (llvm::StringRef name : {"DFHEIBLK", "DFHCOMMAREA"})
    if (!isItem(name))
      supplyRecords(name, StorageType::Linkage);
}

/// CICS passes the interface block and the communication area, before what the program names.
void SuppliedParser::supplyParameters(ProcedureDivision &division, const SourceRange &header) {
  if (!stream.getOptions().cics || context.unit->getParent())
    return;
  const NodeList<Parameter> &parameters = division.getParameterElements();
  auto isNamed = [&](llvm::StringRef name) {
    return llvm::any_of(parameters, [&](Parameter *parameter) {
      auto *item = llvm::dyn_cast<DataIdentifierExpression>(parameter->getExpr());
      return item && item->getQualifiedWord()->getNamesElements().front()->getWordData() == name;
    });
  };
  for (llvm::StringRef name : {"DFHCOMMAREA", "DFHEIBLK"}) {
    if (isNamed(name))
      continue;
    NodeList<Word> names{makeAt<Word>(header, name, name)};
    auto *word = makeAt<QualifiedWord>(header, &names);
    auto *item = makeAt<DataIdentifierExpression>(header, word, nullptr, nullptr);
    division.addParameterFront(makeAt<Parameter>(header, ParameterType::Reference, item));
  }
}

/// A program that has statements of SQL but neither SQLCA nor an SQLCODE of its own gets SQLCA, and
/// one that has statements of DL/I the interface block of those.
void SuppliedParser::supplyCommunicationAreas() {
  auto has = [this](ExecType language) {
    return context.embeddedLanguages.test(static_cast<unsigned>(language));
  };
  if (stream.getOptions().sql && has(ExecType::Sql) && !isItem("SQLCA") && !isItem("SQLCODE") &&
      !isItem("SQLSTATE"))
    supplyRecords("SQLCA", StorageType::WorkingStorage);
  if (stream.getOptions().cics && has(ExecType::Dli) && !isItem("DIBSTAT"))
    supplyRecords("DLZDIB", StorageType::WorkingStorage);
}

/// Parses the records in \p text, which is kept in memory under the name \p file.
void SuppliedParser::readRecords(llvm::StringRef file, llvm::StringRef text, StorageType storage,
                                 AddRecord add) {
  SourceManager files(context.options);
  // The text is correct but for names made of a long name, which the programmer has not written.
  FrontEndDiagnostics discarded;
  TokenStream tokens(files.addText(file, text), files, discarded);
  ParserContext supplied(tokens, discarded, context.options);
  supplied.unit = context.unit;
  DataParser(supplied).parseDataRecords(storage, add);
}

/// Reads a supplied copybook as if it stood at the end of the section.
void SuppliedParser::supplyRecords(llvm::StringRef copybook, StorageType storage) {
  const SuppliedCopybook *supplied = findSuppliedCopybook(copybook);
  assert(supplied && "not a supplied copybook");
  DataDivision *division = context.unit->getDataDivision();
  if (!division) {
    division = makeAt<DataDivision>(context.unit->getRange());
    context.unit->setDataDivision(division);
  }
  readRecords(supplied->getFileName(), supplied->text, storage, [&](DataDescription *record) {
    if (storage == StorageType::WorkingStorage)
      return division->addWorkSection(record);
    record->setGlobal(makeAt<ClauseGlobal>(record->getRange()));
    division->addLinkSection(record);
  });
}

//===----------------------------------------------------------------------===//
// Host variables of SQL types
//===----------------------------------------------------------------------===//

bool SuppliedParser::atSqlType() {
  return atSequence(Keyword::Usage, Keyword::Sql) ||
         atSequence(Keyword::Usage, Keyword::Is, Keyword::Sql);
}

/// What follows the name of a host variable of \p type in its place, where $ stands for the name
/// and # for the size; empty for an unknown type.
static llvm::StringRef declarationOf(llvm::StringRef type) {
  constexpr llvm::StringLiteral locator = " PIC S9(9) COMP-5.";
  constexpr llvm::StringLiteral characters = ". 49 $-LENGTH PIC S9(9) COMP-5. 49 $-DATA PIC X(#).";
  constexpr llvm::StringLiteral file =
      ". 49 $-NAME-LENGTH PIC S9(9) COMP-5. 49 $-DATA-LENGTH PIC S9(9) COMP-5."
      " 49 $-FILE-OPTION PIC S9(9) COMP-5. 49 $-NAME PIC X(255).";
  if (type.ends_with("LOCATOR"))
    return locator;
  if (type.ends_with("-FILE"))
    return file;
  return llvm::StringSwitch<llvm::StringRef>(type)
      .Cases("BLOB", "CLOB", "OBJECT", characters)
      .Case("DBCLOB", ". 49 $-LENGTH PIC S9(9) COMP-5. 49 $-DATA PIC G(#) DISPLAY-1.")
      .Case("ROWID", ". 49 $-LEN PIC S9(4) COMP-5. 49 $-DATA PIC X(40).")
      .Case("BINARY", " PIC X(#).")
      .Case("VARBINARY", ". 49 $-LEN PIC S9(4) COMP-5. 49 $-TEXT PIC X(#).")
      .Default("");
}

/// The size in a type: digits, and K, M or G for a multiple; 0 when it is not a size.
static uint64_t sizeOf(llvm::StringRef text) {
  uint64_t size = 0;
  if (text.consumeInteger(10, size))
    return 0;
  return llvm::StringSwitch<uint64_t>(text)
      .Case("", size)
      .Case("K", size << 10)
      .Case("M", size << 20)
      .Case("G", size << 30)
      .Default(0);
}

bool SuppliedParser::parseSqlType(DataDescription &entry) {
  accept(Keyword::Usage);
  accept(Keyword::Is);
  accept(Keyword::Sql);
  accept(Keyword::Type);
  accept(Keyword::Is);
  // The last known word decides: XML AS CLOB, BINARY LARGE OBJECT, TABLE ... AS LOCATOR.
  SourceRange place = here();
  llvm::StringRef declaration;
  uint64_t size = 1;
  while (!at(TokenKind::Period, TokenKind::EndOfFile)) {
    if (llvm::StringRef found = declarationOf(peek().text); peek().isWord() && !found.empty())
      declaration = found;
    else if (at(Keyword::Varying) && declaration == declarationOf("BINARY"))
      declaration = declarationOf("VARBINARY");
    else if (dataClauses.contains(peek().keyword))
      break;
    else if (uint64_t number = sizeOf(peek().text))
      size = number;
    else if (uint64_t unitSize = sizeOf(("1" + peek().text).str()))
      size *= unitSize;
    stream.skip();
  }
  if (!entry.getDataName())
    return recovery.isConstructDamaged() ? Failure() : expected("the name of the item");
  if (declaration.empty()) {
    error(DiagnosticId::NotSupported, place, "this SQL TYPE");
    // The names that the type would supply are not known.
    context.diagnostics.getDamage().addLostCopy(place);
    declaration = declarationOf("LOCATOR");
  }

  llvm::StringRef name = entry.getDataName()->getWordData();
  // An entry a line, from column 8 on: lines that both source formats read alike.
  constexpr llvm::StringLiteral margin = "       ";
  std::string text = (margin + "01 " + name).str();
  for (char c : declaration)
    text += c == '$'   ? name.str()
            : c == '#' ? std::to_string(size)
            : c == '.' ? (".\n" + margin).str()
                       : std::string(1, c);
  readRecords("<supplied>/SQL-TYPE", text, StorageType::WorkingStorage,
              [&](DataDescription *record) {
                entry.setPicture(record->getPicture());
                entry.setUsage(record->getUsage());
                for (DataDescription *part : record->getChildrenElements())
                  entry.addChildren(part);
              });
  return true;
}

} // namespace tarka
