"""The constructs of the language, each in a program that has it as often as is asked for.

CONSTRUCTS and COMMANDS have by name a function that gives, for a count, the lines of the program, in
the free form, or a Case.
"""

from dataclasses import dataclass, field


@dataclass
class Case:
    """A program, and how `tarka` is to be run on it; "FILE" stands for its path."""

    lines: list
    command: list = field(default_factory=lambda: ["check", "--source-format=free", "FILE"])
    copybooks: dict = field(default_factory=dict)


HEAD = ["IDENTIFICATION DIVISION.", "PROGRAM-ID. BENCH."]


def program(data=(), procedure=(), environment=(), tail=(), using=""):
    lines = list(HEAD)
    if environment:
        lines += ["ENVIRONMENT DIVISION.", *environment]
    lines += ["DATA DIVISION.", *data]
    lines += [f"PROCEDURE DIVISION{using}.", "MAIN-PARAGRAPH.", *procedure, "    STOP RUN.", *tail]
    return lines


def storage(*entries):
    return ["WORKING-STORAGE SECTION.", "77 A PIC 9(4).", "77 T PIC X(9).", *entries]


def each(count, *lines):
    """The lines, count times, with the number in place of #."""
    return [line.replace("#", str(n)) for n in range(1, count + 1) for line in lines]


def siblings(count, common=""):
    nested = each(count, "IDENTIFICATION DIVISION.", f"PROGRAM-ID. N#{common}.",
                  "PROCEDURE DIVISION.", "    EXIT PROGRAM.", "END PROGRAM N#.")
    return program(tail=[*nested, "END PROGRAM BENCH."])


def reports(count):
    select = ["INPUT-OUTPUT SECTION.", "FILE-CONTROL.", "    SELECT F ASSIGN TO F."]
    names = " ".join(f"R{n}" for n in range(1, count + 1))
    return program(
        environment=select,
        data=["FILE SECTION.", f"FD F REPORTS ARE {names}.", *storage(), "REPORT SECTION.",
              *each(count, "RD R#.", "01 GROUP-OF-ALL TYPE DETAIL LINE PLUS 1.",
                    "   05 COLUMN 1 PIC 9(4) SOURCE A.")],
        procedure=["    CONTINUE."])


CONSTRUCTS = {
    "nested programs": siblings,
    "COMMON programs": lambda n: siblings(n, " COMMON"),
    "reports with one group name": reports,
    "conditions of one item": lambda n: program(
        storage("01 ITEM PIC 9(5).", *each(n, "   88 COND-# VALUE #.")),
        each(n, "    IF COND-# MOVE 1 TO A.")),
    "redefinitions of one item": lambda n: program(
        storage("01 ITEM PIC X(9).", *each(n, "01 ITEM-# REDEFINES ITEM PIC X(9)."))),
    "renamed items": lambda n: program(
        storage("01 REC.", *each(n, "   05 ITEM-# PIC X."), *each(n, "   66 ALIAS-# RENAMES ITEM-#."))),
    "items of one name": lambda n: program(
        storage(*each(n, "01 REC-#.", "   05 ITEM PIC 9.")), each(n, "    MOVE 1 TO ITEM OF REC-#.")),
    "tables": lambda n: program(
        storage("01 REC.", *each(n, "   05 TAB-# PIC 9 OCCURS 5 INDEXED BY IX-#.")),
        each(n, "    MOVE 1 TO TAB-# (IX-#).")),
    "variable tables": lambda n: program(
        storage(*each(n, "01 REC-#.", "   05 TAB-# PIC 9 OCCURS 1 TO 5 DEPENDING ON A."))),
    "files": lambda n: program(
        environment=["INPUT-OUTPUT SECTION.", "FILE-CONTROL.",
                     *each(n, "    SELECT F# ASSIGN TO F#.")],
        data=["FILE SECTION.", *each(n, "FD F#.", "01 R# PIC X(80)."), *storage()],
        procedure=each(n, "    OPEN INPUT F#.", "    READ F#.", "    CLOSE F#.")),
    "paragraphs": lambda n: program(
        storage(), each(n, "    PERFORM P-#."), tail=each(n, "P-#.", "    ADD 1 TO A.")),
    "sections": lambda n: program(
        storage(), each(n, "    PERFORM S-#."), tail=each(n, "S-# SECTION.", "    ADD 1 TO A.")),
    "paragraphs of one name": lambda n: program(
        storage(), each(n, "    PERFORM P OF S-#."),
        tail=each(n, "S-# SECTION.", "P.", "    ADD 1 TO A.")),
    "GO TO DEPENDING": lambda n: program(
        storage(), ["    GO TO", *each(n, "      P-#"), "      DEPENDING ON A."],
        tail=each(n, "P-#.", "    ADD 1 TO A.")),
    "objects of EVALUATE": lambda n: program(
        storage(), ["    EVALUATE A", *each(n, "      WHEN # ADD 1 TO A"), "    END-EVALUATE."]),
    "operands of ADD": lambda n: program(
        storage(), ["    ADD", *each(n, "      A"), "      TO A."]),
    "terms of an expression": lambda n: program(
        storage(), ["    COMPUTE A = 1", *each(n, "      + A * 2"), "      ."]),
    "terms of a condition": lambda n: program(
        storage(), ["    IF A = 1", *each(n, "      OR A > #"), "      ADD 1 TO A."]),
    "parts of STRING": lambda n: program(
        storage(), ["    STRING", *each(n, "      T DELIMITED BY SIZE"), "      INTO T."]),
    "CALL": lambda n: program(storage(), each(n, "    CALL 'PROG#' USING A T.")),
    "parameters": lambda n: program(
        ["LINKAGE SECTION.", *each(n, "01 L-# PIC X.")], using=" USING\n    " + "\n    ".join(
            f"L-{k}" for k in range(1, n + 1)), procedure=["    CONTINUE."]),
    "statements of one sentence": lambda n: program(
        storage(), [*each(n, "    ADD 1 TO A"), "    ."]),
    "REPLACE": lambda n: program(
        storage(), each(n, "    REPLACE ==XX-#== BY ==A==.", "    ADD 1 TO XX-#.")),
    "undefined names": lambda n: program(storage(), each(n, "    MOVE 1 TO NAME-#.")),
    "words that do not belong": lambda n: program(storage(), each(n, "    ADD 1 TO TO A.")),
}


def fixed(lines):
    """The lines in columns 7 to 72; those that begin with an indicator of column 7 keep it."""
    return Case([("      " if line[:1] in "*-" else "       ") + line for line in lines],
                ["check", "--source-format=fixed", "FILE"])


def commanded(command, make):
    """What a command other than check makes of the constructs in `make`."""
    return lambda n: Case(make(n), [*command, "--source-format=free", "FILE"])


def nested_programs(depth):
    names = range(1, depth + 1)
    inner = [line for k in names for line in (
        "IDENTIFICATION DIVISION.", f"PROGRAM-ID. N{k}.", "DATA DIVISION.",
        "WORKING-STORAGE SECTION.", f"01 G-{k} PIC 9 GLOBAL.", "PROCEDURE DIVISION.",
        f"    ADD 1 TO G-{max(1, k - 1)} G-{k}.", "    EXIT PROGRAM.")]
    return program(tail=[*inner, *(f"END PROGRAM N{k}." for k in reversed(names)),
                         "END PROGRAM BENCH."])


def global_names(count):
    uses = each(count, "IDENTIFICATION DIVISION.", "PROGRAM-ID. N#.", "PROCEDURE DIVISION.",
                "    ADD 1 TO G-#.", "    EXIT PROGRAM.", "END PROGRAM N#.")
    return program(storage(*each(count, "01 G-# PIC 9(4) GLOBAL.")), ["    CONTINUE."],
                   tail=[*uses, "END PROGRAM BENCH."])


def files(count, entry="", io_control=(), procedure=(), record="01 R# PIC X(80)."):
    return program(
        environment=["INPUT-OUTPUT SECTION.", "FILE-CONTROL.",
                     *each(count, f"    SELECT F# ASSIGN TO F#{entry}."), *io_control],
        data=["FILE SECTION.", *each(count, "FD F#.", record), *storage()],
        procedure=procedure or ["    CONTINUE."])


def one_file(entry, records, procedure=()):
    return program(
        environment=["INPUT-OUTPUT SECTION.", "FILE-CONTROL.", "    SELECT F ASSIGN TO F", *entry,
                     "    ."],
        data=["FILE SECTION.", "FD F.", *records, *storage()],
        procedure=procedure or ["    CONTINUE."])


def report_writer(count, groups):
    """One report with `count` times the lines of `groups`."""
    select = ["INPUT-OUTPUT SECTION.", "FILE-CONTROL.", "    SELECT F ASSIGN TO F."]
    return program(
        environment=select,
        data=["FILE SECTION.", "FD F REPORT IS R.", *storage(), "REPORT SECTION.",
              "RD R CONTROLS ARE FINAL A.", *groups(count)],
        procedure=["    CONTINUE."])


def declaratives(count):
    lines = files(count)
    at = lines.index("MAIN-PARAGRAPH.")
    uses = each(count, "D-# SECTION.", "    USE AFTER STANDARD ERROR PROCEDURE ON F#.", "D-#-P.",
                "    ADD 1 TO A.")
    return [*lines[:at], "DECLARATIVES.", *uses, "END DECLARATIVES.", "MAIN SECTION.", *lines[at:]]


def copies(count, text="COPY BOOK."):
    return Case(program(storage(*each(count, "01 REC-#.", text)), ["    CONTINUE."]),
                copybooks={"BOOK": ["   05 FIELD-OF-BOOK PIC X(4)."]})


def copy_replacing(count):
    pairs = each(count, "    ==OLD-#== BY ==NEW-#==")
    return Case(program(storage("COPY BOOK REPLACING", *pairs, "    ."), ["    CONTINUE."]),
                copybooks={"BOOK": each(count, "01 OLD-# PIC X.")})


def chain_of_copies(count):
    books = {f"B{k}": [f"01 F-{k} PIC X.", f"COPY B{k + 1}."] for k in range(1, count)}
    books[f"B{count}"] = ["01 LAST-ONE PIC X."]
    return Case(program(storage("COPY B1."), ["    CONTINUE."]), copybooks=books)


def sql(count, *lines):
    return program(storage(*each(count, "01 HOST-# PIC X(8).")), each(count, *lines))


def host_variables(count):
    names = ",\n".join(f"      :HOST-{k}" for k in range(1, count + 1))
    columns = ",\n".join(f"      COLUMN_{k}" for k in range(1, count + 1))
    return program(storage(*each(count, "01 HOST-# PIC X(8).")),
                   ["    EXEC SQL SELECT", columns, "    INTO", names, "    FROM TABLE_1 END-EXEC."])


def corresponding(count):
    groups = [line for name in "XY" for line in (f"01 {name}.", *each(count, "   05 ITEM-# PIC 9."))]
    return program(storage(*groups), ["    MOVE CORRESPONDING X TO Y.", "    ADD CORRESPONDING X TO Y."])


def misspelt_names(count):
    return program(storage(*each(count, "01 CUSTOMER-# PIC 9.")),
                   each(count, "    MOVE 1 TO CUSTOMRE-#."))


def misspelt_procedures(count):
    return program(storage(), each(count, "    PERFORM CALCULTAE-#."),
                   tail=each(count, "CALCULATE-#.", "    ADD 1 TO A."))


def nest(count, opening, closing, inside="ADD 1 TO A"):
    return program(storage(), [*[opening] * count, inside, *[closing] * count, "."])


CONSTRUCTS |= {
    # Names and data.
    "misspelt names": misspelt_names,
    "misspelt procedures": misspelt_procedures,
    "ambiguous names": lambda n: program(
        storage(*each(n, "01 REC-#.", "   05 ITEM PIC 9.")), each(n, "    MOVE 1 TO ITEM.")),
    "items declared twice": lambda n: program(storage(*each(n, "01 SAME PIC X."))),
    "qualifiers": lambda n: program(
        storage(*[line for k in range(1, n + 1) for line in (
            f"01 TOP-{k}.", "   05 GROUP-1.", "      10 GROUP-2.", "         15 ITEM PIC 9.")]),
        each(n, "    MOVE 1 TO ITEM OF GROUP-2 OF GROUP-1 OF TOP-#.")),
    "CORRESPONDING": corresponding,
    "values of a condition-name": lambda n: program(
        storage("01 ITEM PIC 9(9).", "   88 COND VALUES", *each(n, "      #"), "      .")),
    "redefinitions in one group": lambda n: program(
        storage("01 REC.", *each(n, "   05 ITEM-# PIC X.", "   05 OTHER-# REDEFINES ITEM-# PIC X."))),
    "redefinitions of redefinitions": lambda n: program(
        storage("01 REC.", "   05 ITEM-0 PIC X.", *(
            f"   05 ITEM-{k} REDEFINES ITEM-{k - 1} PIC X." for k in range(1, n + 1)))),
    "RENAMES THROUGH": lambda n: program(
        storage("01 REC.", *each(n, "   05 ITEM-# PIC X."),
                *each(n, "   66 ALIAS-# RENAMES ITEM-1 THRU ITEM-#."))),
    "indexes of one table": lambda n: program(
        storage("01 REC.", "   05 TAB PIC 9 OCCURS 5 INDEXED BY", *each(n, "      IX-#"), "      ."),
        each(n, "    SET IX-# TO 1.")),
    "keys of one table": lambda n: program(
        storage("01 REC.", "   05 TAB OCCURS 5 ASCENDING KEY", *each(n, "      K-#"), "      .",
                *each(n, "      10 K-# PIC 9."))),
    "SYNCHRONIZED items": lambda n: program(
        storage("01 REC.", *each(n, "   05 X-# PIC X.", "   05 B-# PIC S9(8) COMP SYNC."))),
    "pictures, all different": lambda n: program(storage(*each(n, "01 P-# PIC X(#)."))),
    "nested groups": lambda n: program(
        storage(*(f"{k % 48 + 1:02d} G-{k}{' PIC X' if k % 48 == 47 else ''}."
                  for k in range(48 * (n // 48))))),
    # The environment.
    "SAME AREA": lambda n: files(n, io_control=["I-O-CONTROL.", "    SAME AREA FOR",
                                                *each(n, "      F#"), "      ."]),
    "SAME clauses": lambda n: files(2 * n, io_control=["I-O-CONTROL.", *(
        f"    SAME RECORD AREA FOR F{2 * k - 1} F{2 * k}" for k in range(1, n + 1)), "    ."]),
    "records of one file": lambda n: one_file([], each(n, "01 R-# PIC X(80).")),
    "alternate keys": lambda n: one_file(
        ["    ORGANIZATION INDEXED ACCESS DYNAMIC RECORD KEY K-0",
         *each(n, "    ALTERNATE RECORD KEY K-# WITH DUPLICATES")],
        ["01 R.", "   05 K-0 PIC X.", *each(n, "   05 K-# PIC X.")]),
    "mnemonic-names": lambda n: program(
        storage(), each(n, "    DISPLAY A UPON M-#."),
        environment=["CONFIGURATION SECTION.", "SPECIAL-NAMES.", *each(n, "    SYSOUT IS M-#"),
                     "    ."]),
    "classes": lambda n: program(
        storage(), each(n, "    IF T IS C-# ADD 1 TO A."),
        environment=["CONFIGURATION SECTION.", "SPECIAL-NAMES.", *each(n, "    CLASS C-# IS 'A'"),
                     "    ."]),
    "symbolic characters": lambda n: program(
        storage(), each(n, "    MOVE C-# TO T."),
        environment=["CONFIGURATION SECTION.", "SPECIAL-NAMES.",
                     *each(n, "    SYMBOLIC CHARACTERS C-# IS 65"), "    ."]),
    # Procedures.
    "PERFORM THRU": lambda n: program(
        storage(), each(n, "    PERFORM P-1 THRU P-#."), tail=each(n, "P-#.", "    ADD 1 TO A.")),
    "GO TO": lambda n: program(
        storage(), each(n, "    IF A = # GO TO P-#."), tail=each(n, "P-#.", "    ADD 1 TO A.")),
    "ALTER": lambda n: program(
        storage(), each(n, "    ALTER P-# TO PROCEED TO Q."),
        tail=[*each(n, "P-#.", "    GO TO Q."), "Q.", "    STOP RUN."]),
    "ambiguous procedures": lambda n: program(
        storage(), each(n, "    PERFORM P."), tail=each(n, "P.", "    ADD 1 TO A.")),
    "declaratives": declaratives,
    "SORT keys": lambda n: program(
        storage("01 REC.", "   05 TAB OCCURS 5.", *each(n, "      10 K-# PIC 9.")),
        ["    SORT TAB", *each(n, "      ASCENDING KEY K-#"), "      ."]),
    # Statements.
    "WHENs of SEARCH": lambda n: program(
        storage("01 REC.", "   05 TAB PIC 9(4) OCCURS 5 INDEXED BY IX."),
        ["    SEARCH TAB", *each(n, "      WHEN TAB (IX) = # ADD 1 TO A"), "    END-SEARCH."]),
    "terms of SEARCH ALL": lambda n: program(
        storage("01 REC.", "   05 TAB OCCURS 5 ASCENDING KEY", *each(n, "      K-#"),
                "      INDEXED BY IX.", *each(n, "      10 K-# PIC 9.")),
        ["    SEARCH ALL TAB WHEN K-1 (IX) = 1",
         *(f"      AND K-{k} (IX) = 1" for k in range(2, n + 1)), "      ADD 1 TO A", "    END-SEARCH."]),
    "subjects of EVALUATE": lambda n: program(
        storage(), ["    EVALUATE A", *["      ALSO A"] * (n - 1), "    WHEN 1", *["      ALSO 1"] * (n - 1),
                    "      ADD 1 TO A", "    END-EVALUATE."]),
    "abbreviated conditions": lambda n: program(
        storage(), ["    IF A = 1", *each(n, "      OR #"), "      ADD 1 TO A."]),
    "receivers of MOVE": lambda n: program(
        storage(*each(n, "01 R-# PIC 9.")), ["    MOVE 1 TO", *each(n, "      R-#"), "      ."]),
    "items of SET": lambda n: program(
        storage("01 REC.", "   05 TAB PIC 9 OCCURS 5 INDEXED BY", *each(n, "      IX-#"), "      ."),
        ["    SET", *each(n, "      IX-#"), "      TO 1."]),
    "parts of INSPECT": lambda n: program(
        storage(), ["    INSPECT T REPLACING", *["      ALL 'A' BY 'B' AFTER 'C'"] * n, "      ."]),
    "parts of UNSTRING": lambda n: program(
        storage(*each(n, "01 R-# PIC X(4).")),
        ["    UNSTRING T DELIMITED BY ','", "    INTO", *each(n, "      R-#"), "      ."]),
    "arguments of a function": lambda n: program(
        storage(), ["    COMPUTE A = FUNCTION MAX (", *each(n, "      #"), "      )."]),
    "arguments of CALL": lambda n: program(
        storage(*each(n, "01 R-# PIC X.")), ["    CALL 'X' USING", *each(n, "      R-#"), "      ."]),
    "names in XML GENERATE": lambda n: program(
        storage("01 REC.", *each(n, "   05 I-# PIC X.")),
        ["    XML GENERATE T FROM REC NAME OF", *each(n, "      I-# IS 'N#'"), "      ."]),
    "names in JSON GENERATE": lambda n: program(
        storage("01 REC.", *each(n, "   05 I-# PIC X.")),
        ["    JSON GENERATE T FROM REC NAME OF", *each(n, "      I-# IS 'N#'"), "      ."]),
    "reserved words in wrong places": lambda n: program(storage(), each(n, "    MOVE TO A SECTION.")),
    # Depth, as far as the language or the parser allows.
    "nested IF": lambda n: nest(n // 15, "IF A = 1", "END-IF"),
    "nested PERFORM": lambda n: nest(n // 15, "PERFORM UNTIL A = 1", "END-PERFORM"),
    "nested EVALUATE": lambda n: nest(n // 15, "EVALUATE A WHEN 1", "END-EVALUATE"),
    "nested phrases": lambda n: nest(n // 15, "ADD 1 TO A ON SIZE ERROR", "END-ADD"),
    "parentheses": lambda n: program(
        storage(), ["    COMPUTE A =", *["("] * (n // 15), "A", *[")"] * (n // 15), "."]),
    "nested programs, one in the other": lambda n: nested_programs(n // 5),
    "GLOBAL names": global_names,
    # Reports.
    "groups of a report": lambda n: report_writer(n, lambda count: each(
        count, "01 G-# TYPE DETAIL LINE PLUS 1.", "   05 COLUMN 1 PIC 9(4) SOURCE A.")),
    "lines of a group": lambda n: report_writer(n, lambda count: [
        "01 G TYPE DETAIL.", *each(count, "   05 LINE PLUS 1.", "      10 COLUMN 1 PIC 9(4) SOURCE A.")]),
    "SUM clauses": lambda n: report_writer(n, lambda count: [
        "01 G TYPE DETAIL LINE PLUS 1.", *each(count, "   05 D-# COLUMN PLUS 1 PIC 9(4) SOURCE A."),
        "01 TYPE CONTROL FOOTING FINAL LINE PLUS 1.",
        *each(count, "   05 COLUMN PLUS 1 PIC 9(4) SUM D-#.")]),
    # The source text.
    "COPY": copies,
    "COPY REPLACING": lambda n: copies(n, "COPY BOOK REPLACING ==FIELD-OF-BOOK== BY ==FIELD-#==."),
    "pairs of COPY REPLACING": copy_replacing,
    "COPY within COPY": lambda n: chain_of_copies(n // 15),
    "missing copybooks": lambda n: program(storage(*each(n, "01 REC-#.", "COPY NOBOOK-#."))),
    "pairs of REPLACE": lambda n: program(
        storage(), ["    REPLACE", *each(n, "      ==XX-#== BY ==A=="), "      .",
                    *each(n, "    ADD 1 TO XX-#.")]),
    "continued literals": lambda n: fixed(program(
        storage(), each(n, "    DISPLAY 'THE BEGINNING OF A LITERAL THAT GOES TO THE END OF LINE",
                        "-   'AND ENDS HERE'."))),
    "lines of one literal": lambda n: fixed(program(
        storage(), ["    DISPLAY 'THE BEGINNING OF A LITERAL THAT GOES TO THE END OF LINE.",
                    *["-   'AND GOES ON AND GOES ON AND GOES ON AND GOES ON AND GOES ON."] * n,
                    "-   'AND ENDS HERE'."])),
    "one long literal": lambda n: program(storage(), [f"    DISPLAY '{'TEXT ' * n}'."]),
    "one long line": lambda n: program(storage(), [" ".join(each(n, "ADD 1 TO A"))]),
    "comments": lambda n: program(storage(), [*["*> WHAT THE NEXT STATEMENTS ARE FOR"] * n, "    ADD 1 TO A."]),
    "comments behind statements": lambda n: program(storage(), ["    ADD 1 TO A. *> WHY"] * n),
    "empty lines": lambda n: program(storage(), [*[""] * n, "    ADD 1 TO A."]),
    ">>IF": lambda n: program(
        storage(), each(n, ">>IF SOMETHING IS DEFINED", "    ADD 1 TO B.", ">>ELSE", "    ADD 1 TO A.",
                        ">>END-IF")),
    # EXEC blocks.
    "EXEC SQL": lambda n: sql(n, "    EXEC SQL SELECT NAME INTO :HOST-# FROM T WHERE KEY = :A END-EXEC."),
    "host variables": host_variables,
    "cursors": lambda n: sql(
        n, "    EXEC SQL DECLARE C# CURSOR FOR SELECT NAME FROM T END-EXEC.",
        "    EXEC SQL OPEN C# END-EXEC.", "    EXEC SQL FETCH C# INTO :HOST-# END-EXEC.",
        "    EXEC SQL CLOSE C# END-EXEC."),
    "EXEC CICS": lambda n: sql(
        n, "    EXEC CICS READ FILE('F#') INTO(HOST-#) RIDFLD(A) RESP(A) END-EXEC."),
    "options of EXEC CICS": lambda n: program(
        storage(), ["    EXEC CICS HANDLE CONDITION", *["      NOTFND(MAIN-PARAGRAPH)"] * n, "    END-EXEC."]),
    "undefined host variables": lambda n: program(
        storage(), each(n, "    EXEC SQL DELETE FROM T WHERE KEY = :NO-HOST-# END-EXEC.")),
}


def mixed(count):
    """A program with some of everything, for the commands other than check."""
    return program(
        storage("01 REC.", *each(count, "   05 ITEM-# PIC 9(4).", "      88 COND-# VALUE 1."),
                "01 TABLES.", *each(count, "   05 TAB-# PIC X OCCURS 5 INDEXED BY IX-#.")),
        [*each(count, "    IF COND-# PERFORM P-# THRU P-#-EXIT ELSE MOVE ITEM-# TO A."),
         "    EVALUATE A", *each(count, "      WHEN # ADD 1 TO A"), "    END-EVALUATE."],
        tail=each(count, "P-#.", "    IF A = # GO TO P-#-EXIT.", "    ADD 1 TO ITEM-#.", "P-#-EXIT.",
                  "    EXIT."))


def faulty(count):
    """Every statement is wrong, each in one of some ways."""
    return program(storage(), each(count, "    MOVE 1 TO NAME-#.", "    ADD T TO A.", "    PERFORM P-#.",
                                   "    MOVE A TO TO T."))


COMMANDS = {
    **{f"check --format={form}": commanded(["check", "--exit-zero", f"--format={form}"], faulty)
       for form in ("classic", "pretty", "json", "ndjson", "sarif", "github", "junit", "gcc")},
    "check --all": commanded(["check", "--all"], faulty),
    "check --enterprise": commanded(["check", "--enterprise"], mixed),
    "check --write-baseline": commanded(["check", "--write-baseline=FILE.json"], faulty),
    "check --baseline": commanded(["check", "--baseline=FILE.json"], faulty),
    "check --fix --diff": commanded(["check", "--fix", "--diff"], faulty),
    "check --list-copybooks": lambda n: Case(copies(n).lines, [
        "check", "--list-copybooks", "--source-format=free", "FILE"], copies(n).copybooks),
    **{" ".join(command): commanded(command, mixed) for command in (
        ["cfg"], ["cfg", "--format=json"], ["cfg", "--format=dot"], ["flow"], ["flow", "--format=json"],
        ["layout"], ["layout", "--format=json"], ["ast"], ["ast", "--format=json"], ["expand"],
        ["expand", "--format=json"])},
}
