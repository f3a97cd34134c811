//===- SqlParser.cpp - the statements of SQL ------------------------------===//
//
// Finds out what a statement is, its host variables with what it does with them,
// the names of cursors and prepared statements, and the tables that it works on.
// SQL itself is not checked: a statement that is not understood still has its
// host variables.
//
//===----------------------------------------------------------------------===//

#include "AST/KindNames.h"
#include "Parse/Embedded/EmbeddedParser.h"
#include "Parse/Embedded/SqlLexer.h"
#include "Parse/ParseExpression.h"
#include "llvm/ADT/StringExtras.h"
#include "llvm/ADT/StringSet.h"
#include "llvm/ADT/StringSwitch.h"

namespace tarka {

namespace {

/// A host variable can be written like a name of COBOL.
bool isCobolWordCharacter(char c) {
  return llvm::isAlnum(c) || c == '-' || c == '_' || static_cast<unsigned char>(c) >= 0x80;
}

class SqlParser {
public:
  SqlParser(ParserContext &parserContext, const EmbeddedSource &block)
      : context(parserContext), source(block), tokens(readSqlTokens(block.text)) {
    matchParentheses();
  }

  SqlCommand *parse() {
    if (!tokens.front().isName() && !tokens.front().isMark('('))
      return nullptr;
    const SourceRange place = rangeOf(tokens.front(), tokens[tokens.size() - 2]);
    const SqlKind kind = kindOf();
    const std::string verb = kind == SqlKind::Other || kind == SqlKind::Declaration
                                 ? tokens.front().text.upper()
                                 : nameOf(kind).str();
    command = new SqlCommand(place, &internString(verb), kind);
    readNames();
    readHostVariables();
    readTables();
    followWhenever();
    return command;
  }

private:
  //===--------------------------------------------------------------------===//
  // Tokens
  //===--------------------------------------------------------------------===//

  /// The token \p n; the End behind the last one.
  const SqlToken &at(std::size_t n) const { return tokens[std::min(n, tokens.size() - 1)]; }

  SourceRange rangeOf(const SqlToken &first, const SqlToken &last) const {
    return source.places.rangeOf(
        llvm::StringRef(first.text.begin(), last.text.end() - first.text.begin()));
  }

  /// Takes the name that begins at \p n, which is moved behind it. Cursors, statements and
  /// procedures can have names with hyphens.
  Word *takeName(std::size_t &n) {
    if (!at(n).isName() && at(n).kind != SqlTokenKind::Number)
      return nullptr;
    const SqlToken &first = at(n++);
    const char *end = first.text.end();
    while ((at(n).isMark('-') || isWordOrNumber(at(n))) && at(n).text.begin() == end)
      end = at(n++).text.end();
    llvm::StringRef text(first.text.begin(), end - first.text.begin());
    const bool isDelimited = first.kind == SqlTokenKind::Quoted;
    return new Word(source.places.rangeOf(text), &internString(isDelimited ? text : text.upper()),
                    &internString(text));
  }
  static bool isWordOrNumber(const SqlToken &token) {
    return token.kind == SqlTokenKind::Word || token.kind == SqlTokenKind::Number;
  }

  /// Behind the parentheses that open at \p n.
  std::size_t skipParentheses(std::size_t n) const { return behindParentheses[n]; }

  void matchParentheses() {
    behindParentheses.assign(tokens.size(), static_cast<std::uint32_t>(tokens.size() - 1));
    llvm::SmallVector<std::size_t, 8> open;
    for (std::size_t n = 0; n < tokens.size(); ++n) {
      if (tokens[n].isMark('('))
        open.push_back(n);
      else if (tokens[n].isMark(')') && !open.empty())
        behindParentheses[open.pop_back_val()] = static_cast<std::uint32_t>(n + 1);
    }
  }

  //===--------------------------------------------------------------------===//
  // What statement it is
  //===--------------------------------------------------------------------===//

  SqlKind kindOf() const {
    const SqlToken &first = at(0);
    if (first.is("DECLARE"))
      return declarationKind();
    if (first.is("BEGIN") || first.is("END"))
      return at(1).is("DECLARE") ? SqlKind::Declaration : SqlKind::Other;
    if (first.is("INCLUDE"))
      return SqlKind::Declaration;
    return llvm::StringSwitch<SqlKind>(first.text)
        .CaseLower("open", SqlKind::Open)
        .CaseLower("fetch", SqlKind::Fetch)
        .CaseLower("close", SqlKind::Close)
        .CasesLower("select", "with", SqlKind::Select)
        .CaseLower("insert", SqlKind::Insert)
        .CaseLower("update", SqlKind::Update)
        .CaseLower("delete", SqlKind::Delete)
        .CaseLower("merge", SqlKind::Merge)
        .CaseLower("prepare", SqlKind::Prepare)
        .CaseLower("execute", SqlKind::Execute)
        .CaseLower("describe", SqlKind::Describe)
        .CaseLower("whenever", SqlKind::Whenever)
        .CaseLower("allocate", SqlKind::Allocate)
        .Default(SqlKind::Other);
  }

  /// DECLARE name CURSOR, TABLE, STATEMENT or VARIABLE. DECLARE GLOBAL TEMPORARY TABLE makes a
  /// table when the program runs.
  SqlKind declarationKind() const {
    if (at(1).is("GLOBAL") && at(2).is("TEMPORARY"))
      return SqlKind::Other;
    for (std::size_t n = 2; at(n).kind != SqlTokenKind::End && !at(n).is("FOR"); ++n) {
      if (at(n).is("CURSOR"))
        return SqlKind::DeclareCursor;
      if (at(n).is("TABLE"))
        return SqlKind::DeclareTable;
      if (at(n).is("STATEMENT"))
        return SqlKind::DeclareStatement;
      if (at(n).isMark('('))
        break;
    }
    return SqlKind::Declaration;
  }

  //===--------------------------------------------------------------------===//
  // Names
  //===--------------------------------------------------------------------===//

  void addName(llvm::StringRef what, EmbeddedRole role, Word *word) {
    if (!word)
      return;
    auto *operand = new EmbeddedOperand(word->getRange(), &internString(what), role);
    operand->setWord(word);
    command->addOperand(operand);
  }
  void setCursor(Word *word) {
    command->setCursor(word);
    addName("CURSOR", EmbeddedRole::Name, word);
  }
  void setStatement(Word *word) {
    command->setStatementName(word);
    addName("STATEMENT", EmbeddedRole::Name, word);
  }

  /// The names of cursors, prepared statements and labels.
  void readNames() {
    std::size_t n = 1;
    switch (command->getKind()) {
    case SqlKind::DeclareCursor:
      setCursor(takeName(n));
      return readCursorQuery(n);
    case SqlKind::DeclareStatement:
      do {
        addName("STATEMENT", EmbeddedRole::Name, takeName(n));
      } while (at(n++).isMark(','));
      return;
    case SqlKind::Open:
    case SqlKind::Close:
    case SqlKind::Allocate:
      return setCursor(takeName(n));
    case SqlKind::Fetch:
      return readFetchedCursor();
    case SqlKind::Prepare:
      return setStatement(takeName(n));
    case SqlKind::Execute:
      if (!at(1).is("IMMEDIATE"))
        setStatement(takeName(n));
      return;
    case SqlKind::Describe:
      return readDescribed();
    case SqlKind::Whenever:
      return readWhenever();
    case SqlKind::Update:
    case SqlKind::Delete:
      for (; at(n).kind != SqlTokenKind::End; ++n)
        if (at(n).is("CURRENT") && at(n + 1).is("OF")) {
          n += 2;
          return setCursor(takeName(n));
        }
      return;
    case SqlKind::Select:
      command->setColumnCount(countColumns(0));
      return;
    default:
      if (at(0).is("VALUES"))
        command->setColumnCount(countValues());
      return;
    }
  }

  /// DECLARE cursor ... CURSOR ... FOR query or statement-name
  void readCursorQuery(std::size_t n) {
    // FOR is the one before the query; options have none.
    while (at(n).kind != SqlTokenKind::End && !at(n).is("FOR"))
      ++n;
    ++n;
    if (at(n).isOneOf("SELECT", "WITH", "VALUES") || at(n).isMark('('))
      return command->setColumnCount(countColumns(n));
    setStatement(takeName(n));
  }

  /// FETCH [orientation] [FROM] cursor [FOR n ROWS] [INTO ...]
  void readFetchedCursor() {
    std::size_t n = 1;
    std::size_t name = 0;
    while (at(n).kind != SqlTokenKind::End && !at(n).isOneOf("INTO", "USING", "FOR")) {
      if (at(n).isName()) {
        name = n;
        takeName(n);
      } else {
        // A number or a host variable says which row.
        ++n;
        if (at(n - 1).kind == SqlTokenKind::Colon)
          ++n;
      }
    }
    if (name)
      setCursor(takeName(name));
  }

  /// DESCRIBE [INPUT | OUTPUT] statement; what is described may be something else.
  void readDescribed() {
    std::size_t n = at(1).isOneOf("INPUT", "OUTPUT") ? 2 : 1;
    if (!at(n).isOneOf("CURSOR", "PROCEDURE", "TABLE", "STATIC"))
      setStatement(takeName(n));
  }

  /// WHENEVER {NOT FOUND | SQLERROR | SQLWARNING} {CONTINUE | {GO TO | GOTO} [:]label}
  void readWhenever() {
    std::size_t n = 2;
    if (at(1).is("NOT") && at(2).is("FOUND")) {
      command->setWhenever(WheneverCondition::NotFound);
      n = 3;
    } else if (at(1).is("SQLERROR")) {
      command->setWhenever(WheneverCondition::SqlError);
    } else if (at(1).is("SQLWARNING")) {
      command->setWhenever(WheneverCondition::SqlWarning);
    }
    if (at(n).is("GOTO"))
      ++n;
    else if (at(n).is("GO") && at(n + 1).is("TO"))
      n += 2;
    else
      return;
    if (at(n).kind == SqlTokenKind::Colon)
      ++n;
    addName("LABEL", EmbeddedRole::Label, takeName(n));
  }

  /// WHENEVER holds for the statements behind it in the text, whatever order they run in.
  void followWhenever() {
    std::array<SqlCommand *, 4> &inForce = scratchOf(context).whenever;
    if (const WheneverCondition condition = command->getWhenever();
        condition != WheneverCondition::None)
      inForce[static_cast<std::size_t>(condition)] = command;
    for (WheneverCondition condition :
         {WheneverCondition::NotFound, WheneverCondition::SqlError, WheneverCondition::SqlWarning})
      command->setWheneverFor(condition, inForce[static_cast<std::size_t>(condition)]);
  }

  /// How many columns the SELECT gives that begins at \p n, or behind the common table expressions
  /// there; 0 when that is not certain.
  unsigned countColumns(std::size_t n) const {
    if (at(n).is("WITH"))
      while (at(n).kind != SqlTokenKind::End && !at(n).is("SELECT"))
        n = at(n).isMark('(') ? skipParentheses(n) : n + 1;
    if (!at(n).is("SELECT"))
      return 0;
    ++n;
    if (at(n).isOneOf("ALL", "DISTINCT"))
      ++n;
    unsigned columns = 1;
    bool isItemBegun = false;
    while (at(n).kind != SqlTokenKind::End && !at(n).isOneOf("FROM", "INTO")) {
      if (at(n).isMark('(')) {
        n = skipParentheses(n);
        isItemBegun = true;
        continue;
      }
      // "*" and T.* are all columns of a table; A * B is a product.
      if (at(n).isMark('*') && (!isItemBegun || at(n - 1).isMark('.')))
        return 0;
      isItemBegun = !at(n).isMark(',');
      columns += !isItemBegun;
      ++n;
    }
    return at(n).kind == SqlTokenKind::End ? 0 : columns;
  }

  /// How many values stand in VALUES value INTO or VALUES (value, value ...) INTO.
  unsigned countValues() const {
    const std::size_t end = at(1).isMark('(') ? skipParentheses(1) : 0;
    if (!end || !at(end).is("INTO"))
      return end ? 0 : 1;
    unsigned values = 1;
    for (std::size_t n = 2; n + 1 < end;) {
      values += at(n).isMark(',');
      n = at(n).isMark('(') ? skipParentheses(n) : n + 1;
    }
    return values;
  }

  //===--------------------------------------------------------------------===//
  // Host variables
  //===--------------------------------------------------------------------===//

  void readHostVariables() {
    if (command->getKind() == SqlKind::Whenever)
      return;
    // INTO is followed by targets, each behind a comma; a SET or GET DIAGNOSTICS has them before
    // its equal signs.
    bool isTarget = false;
    bool isBehindEqualSign = false;
    bool isDescriptor = false;
    const bool assigns = at(0).isOneOf("SET", "GET");
    const bool isCall = at(0).is("CALL");
    const bool associates = at(0).is("ASSOCIATE");
    const bool describes = at(0).isOneOf("DESCRIBE", "PREPARE");
    for (std::size_t n = 0; at(n).kind != SqlTokenKind::End;) {
      if (at(n).kind != SqlTokenKind::Colon) {
        isBehindEqualSign |= at(n).isMark('=');
        const bool goesOn = isTarget && (at(n).isMark(',') || at(n).isMark('('));
        // A descriptor says where the values are; only the statements that describe change it.
        isDescriptor = at(n).is("DESCRIPTOR");
        if (!goesOn)
          isTarget = at(n).is("INTO") || (associates && at(n).isOneOf("LOCATORS", "LOCATOR"));
        ++n;
        continue;
      }
      // The label of a compound statement: WORK: BEGIN.
      const SqlToken &colon = at(n);
      if (n > 0 && at(n - 1).kind == SqlTokenKind::Word && at(n - 1).touches(colon) &&
          !colon.touches(at(n + 1))) {
        ++n;
        continue;
      }
      Expression *variable = takeHostVariable(n);
      if (!variable)
        continue;
      EmbeddedRole role = isTarget ? EmbeddedRole::Written
                          : isCall ? EmbeddedRole::ReadWritten
                                   : EmbeddedRole::Read;
      // GET DIAGNOSTICS CONDITION :NUMBER :TEXT = ... has two variables side by side.
      Expression *indicator = at(0).is("GET") ? nullptr : takeIndicator(n);
      if (assigns &&
          (at(n).isMark('=') || (!isBehindEqualSign && (at(n).isMark(',') || at(n).isMark(')')))))
        role = EmbeddedRole::Written;
      const bool isDescribed = describes && isTarget;
      addVariable(isDescriptor || isDescribed ? "DESCRIPTOR"
                  : isTarget                  ? "INTO"
                                              : "",
                  role, variable);
      if (indicator)
        addVariable("INDICATOR", role, indicator);
    }
  }

  void addVariable(llvm::StringRef what, EmbeddedRole role, Expression *variable) {
    auto *operand = new EmbeddedOperand(variable->getRange(), &internString(what), role);
    operand->setValue(variable);
    command->addOperand(operand);
  }

  /// [INDICATOR] :indicator
  Expression *takeIndicator(std::size_t &n) {
    if (at(n).is("INDICATOR") && at(n + 1).kind == SqlTokenKind::Colon)
      ++n;
    return at(n).kind == SqlTokenKind::Colon ? takeHostVariable(n) : nullptr;
  }

  /// The text of the name at \p n, which may have hyphens; \p n is moved behind it.
  llvm::StringRef takeCobolName(std::size_t &n) {
    llvm::StringRef rest(at(n).text.begin(), source.text.end() - at(n).text.begin());
    llvm::StringRef name = rest.take_while(isCobolWordCharacter);
    const SqlToken *token = &at(n);
    // A hyphen at the end is a minus sign or begins a comment.
    name = name.rtrim('-');
    while (token->kind != SqlTokenKind::End && token->text.begin() < name.end())
      token = &at(++n);
    return name;
  }

  /// :name, :group.name, :name OF group, :name(subscripts). At the colon; \p n is moved behind it.
  Expression *takeHostVariable(std::size_t &n) {
    ++n;
    if (!isWordOrNumber(at(n)))
      return nullptr;
    llvm::SmallVector<llvm::StringRef, 4> names{takeCobolName(n)};
    if (names.front().empty())
      return nullptr;
    while (at(n).isMark('.') && isWordOrNumber(at(n + 1)) && at(n - 1).touches(at(n))) {
      ++n;
      names.insert(names.begin(), takeCobolName(n));
    }
    while (at(n).isOneOf("OF", "IN") && at(n + 1).kind == SqlTokenKind::Word && context.unit &&
           Scope(context.unit).isItem(&upper(at(n + 1)))) {
      ++n;
      names.push_back(takeCobolName(n));
    }
    const char *begin = names.front().begin();
    const char *end = names.front().end();
    for (llvm::StringRef name : names) {
      begin = std::min(begin, name.begin());
      end = std::max(end, name.end());
    }
    auto *qualified = new QualifiedWord(nullptr);
    qualified->setRange(source.places.rangeOf(llvm::StringRef(begin, end - begin)));
    for (llvm::StringRef name : names)
      qualified->addNames(
          new Word(source.places.rangeOf(name), &internString(name.upper()), &internString(name)));
    SubscriptModifier *subscripts = nullptr;
    if (at(n).isMark('(') && at(n).text.begin() == end)
      subscripts = takeSubscripts(n);
    return new DataIdentifierExpression(qualified, qualified, subscripts, nullptr);
  }

  const std::string &upper(const SqlToken &token) const {
    llvm::StringRef rest(token.text.begin(), source.text.end() - token.text.begin());
    return internString(rest.take_while(isCobolWordCharacter).upper());
  }

  /// The subscripts in the parentheses at \p n, which is moved behind them: one expression of
  /// COBOL.
  SubscriptModifier *takeSubscripts(std::size_t &n) {
    const std::size_t begin = n;
    n = skipParentheses(n);
    if (n <= begin + 2)
      return nullptr;
    EmbeddedScratch &scratch = scratchOf(context);
    scratch.tokens.clear();
    const char *first = at(begin + 1).text.begin();
    llvm::StringRef inner(first, at(n - 1).text.begin() - first);
    context.stream.scanEmbedded(inner, source.places, scratch.tokens);
    Expression *subscript = scratch.parseExpression(scratch.tokens);
    if (!subscript)
      return nullptr;
    auto *modifier = new SubscriptModifier(subscript);
    modifier->addSubscript(subscript);
    return modifier;
  }

  //===--------------------------------------------------------------------===//
  // Tables
  //===--------------------------------------------------------------------===//

  void readTables() {
    switch (command->getKind()) {
    case SqlKind::DeclareTable:
      return readDeclaredTable();
    case SqlKind::Select:
    case SqlKind::DeclareCursor:
    case SqlKind::Insert:
    case SqlKind::Update:
    case SqlKind::Delete:
    case SqlKind::Merge:
      break;
    default:
      return;
    }
    std::size_t n = 1;
    if (command->getKind() == SqlKind::Insert || command->getKind() == SqlKind::Merge) {
      n += at(n).is("INTO");
      SqlTableUse *table = takeTable(n, TableAccess::Insert);
      if (table && command->getKind() == SqlKind::Insert)
        readColumnList(n, *table);
    } else if (command->getKind() == SqlKind::Update) {
      if (SqlTableUse *table = takeTable(n, TableAccess::Update))
        readAssignedColumns(n, *table);
    } else if (command->getKind() == SqlKind::Delete) {
      n += at(n).is("FROM");
      takeTable(n, TableAccess::Delete);
    }
    readQueriedTables(n);
  }

  /// The table or view named at \p n, which is moved behind its name; null where none is named.
  SqlTableUse *takeTable(std::size_t &n, TableAccess access) {
    if (!at(n).isName())
      return nullptr;
    const std::size_t begin = n++;
    while (at(n).isMark('.') && at(n + 1).isName())
      n += 2;
    std::string name;
    for (std::size_t part = begin; part < n; ++part)
      name += at(part).kind == SqlTokenKind::Quoted ? at(part).text.str() : at(part).text.upper();
    auto *table = new SqlTableUse(rangeOf(at(begin), at(n - 1)), &internString(name), access);
    command->addTable(table);
    return table;
  }

  void addColumn(SqlTableUse &table, const SqlToken &name) {
    table.addColumn(new Word(source.places.rangeOf(name.text), &internString(name.text.upper()),
                             &internString(name.text)));
  }

  /// (column, column ...), where columns are given.
  void readColumnList(std::size_t n, SqlTableUse &table) {
    if (!at(n).isMark('('))
      return;
    for (++n; at(n).isName(); n += 2) {
      addColumn(table, at(n));
      if (!at(n + 1).isMark(','))
        return;
    }
  }

  /// SET column = ..., (column, column) = ... of an UPDATE.
  void readAssignedColumns(std::size_t n, SqlTableUse &table) {
    while (at(n).kind != SqlTokenKind::End && !at(n).is("SET"))
      ++n;
    for (++n; at(n).kind != SqlTokenKind::End && !at(n).is("WHERE");) {
      if (at(n).isMark('(')) {
        n = skipParentheses(n);
      } else {
        if (at(n).isName() && at(n + 1).isMark('=') &&
            (at(n - 1).is("SET") || at(n - 1).isMark(',') || at(n - 1).isMark('.')))
          addColumn(table, at(n));
        ++n;
      }
    }
  }

  /// DECLARE table TABLE (column type, ...)
  void readDeclaredTable() {
    std::size_t n = 1;
    SqlTableUse *table = takeTable(n, TableAccess::Declare);
    if (!table || !at(n).is("TABLE"))
      return;
    for (n += 2; at(n).isName(); ++n) {
      addColumn(*table, at(n));
      while (at(n).kind != SqlTokenKind::End && !at(n).isMark(',') && !at(n).isMark(')'))
        n = at(n).isMark('(') ? skipParentheses(n) : n + 1;
      if (!at(n).isMark(','))
        return;
    }
  }

  /// The tables behind FROM and JOIN from \p n on. FROM is also a word of functions and of
  /// comparisons, where no SELECT comes before it in its parentheses.
  void readQueriedTables(std::size_t n) {
    llvm::SmallVector<bool, 8> selects(1, false);
    llvm::StringSet<> common = commonTables();
    for (; at(n).kind != SqlTokenKind::End; ++n) {
      if (at(n).isMark('(')) {
        selects.push_back(false);
      } else if (at(n).isMark(')')) {
        if (selects.size() > 1)
          selects.pop_back();
      } else if (at(n).is("SELECT")) {
        selects.back() = true;
      } else if ((at(n).is("FROM") && selects.back() && !at(n - 1).is("DISTINCT")) ||
                 at(n).isOneOf("JOIN", "USING")) {
        if (at(n).is("USING") && command->getKind() != SqlKind::Merge)
          continue;
        std::size_t next = takeQueriedTable(n + 1, common);
        while (next && at(next).isMark(','))
          next = takeQueriedTable(next + 1, common);
      }
    }
  }

  /// One table of a FROM with its correlation name; gives what is next, 0 where there is no table.
  std::size_t takeQueriedTable(std::size_t n, const llvm::StringSet<> &common) {
    if (!at(n).isName() || at(n).isOneOf("FINAL", "OLD", "NEW", "TABLE", "LATERAL", "XMLTABLE") ||
        at(n + 1).isMark('('))
      return 0;
    if (common.contains(at(n).text.upper()))
      ++n;
    else
      takeTable(n, TableAccess::Read);
    n += at(n).is("AS");
    const bool isCorrelation = at(n).kind == SqlTokenKind::Word &&
                               !at(n).isOneOf("WHERE", "ORDER", "GROUP", "HAVING", "FETCH", "FOR",
                                              "WITH", "UNION", "INNER", "LEFT") &&
                               !at(n).isOneOf("RIGHT", "FULL", "JOIN", "ON", "OPTIMIZE", "QUERYNO",
                                              "EXCEPT", "INTERSECT", "CROSS", "INTO");
    return n + isCorrelation;
  }

  /// The names that WITH gives to common table expressions.
  llvm::StringSet<> commonTables() const {
    llvm::StringSet<> names;
    for (std::size_t n = 1; at(n).kind != SqlTokenKind::End; ++n) {
      const bool isBegun = at(n - 1).is("WITH") || at(n - 1).isMark(',');
      if (!isBegun || !at(n).isName())
        continue;
      const std::size_t as = at(n + 1).isMark('(') ? skipParentheses(n + 1) : n + 1;
      if (at(as).is("AS") && at(as + 1).isMark('('))
        names.insert(at(n).text.upper());
    }
    return names;
  }

  ParserContext &context;
  const EmbeddedSource &source;
  llvm::SmallVector<SqlToken, 64> tokens;
  llvm::SmallVector<std::uint32_t, 64> behindParentheses; ///< by the token that opens them
  SqlCommand *command = nullptr;
};

} // namespace

EmbeddedCommand *parseSqlCommand(ParserContext &context, const EmbeddedSource &source) {
  return SqlParser(context, source).parse();
}

} // namespace tarka
