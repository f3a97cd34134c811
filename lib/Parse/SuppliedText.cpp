//===- SuppliedText.cpp - copybooks that come with CICS and DB2 -----------===//

#include "Parse/SuppliedText.h"
#include "AST/Spelling.h"
#include "Parse/ParseOptions.h"
#include "llvm/ADT/STLExtras.h"

namespace tarka {

namespace {

//===----------------------------------------------------------------------===//
// Copybooks
//===----------------------------------------------------------------------===//

/// The EXEC interface block, which describes the last command of a task.
constexpr llvm::StringLiteral dfheiblk = R"(       01  DFHEIBLK.
           02  EIBTIME      PIC S9(7) COMP-3.
           02  EIBDATE      PIC S9(7) COMP-3.
           02  EIBTRNID     PIC X(4).
           02  EIBTASKN     PIC S9(7) COMP-3.
           02  EIBTRMID     PIC X(4).
           02  DFHEIGDI     PIC S9(4) COMP.
           02  EIBCPOSN     PIC S9(4) COMP.
           02  EIBCALEN     PIC S9(4) COMP.
           02  EIBAID       PIC X.
           02  EIBFN        PIC X(2).
           02  EIBRCODE     PIC X(6).
           02  EIBDS        PIC X(8).
           02  EIBREQID     PIC X(8).
           02  EIBRSRCE     PIC X(8).
           02  EIBSYNC      PIC X.
           02  EIBFREE      PIC X.
           02  EIBRECV      PIC X.
           02  EIBFIL01     PIC X.
           02  EIBATT       PIC X.
           02  EIBEOC       PIC X.
           02  EIBFMH       PIC X.
           02  EIBCOMPL     PIC X.
           02  EIBSIG       PIC X.
           02  EIBCONF      PIC X.
           02  EIBERR       PIC X.
           02  EIBERRCD     PIC X(4).
           02  EIBSYNRB     PIC X.
           02  EIBNODAT     PIC X.
           02  EIBRESP      PIC S9(8) COMP.
           02  EIBRESP2     PIC S9(8) COMP.
           02  EIBRLDBK     PIC X.
)";

/// Stands for the communication area of a program that declares none.
constexpr llvm::StringLiteral dfhcommarea = R"(       01  DFHCOMMAREA PIC X.
)";

/// The attention identifiers that a terminal sends.
constexpr llvm::StringLiteral dfhaid = R"(       01  DFHAID.
           02  DFHNULL      PIC X VALUE X'00'.
           02  DFHENTER     PIC X VALUE X'7D'.
           02  DFHCLEAR     PIC X VALUE X'6D'.
           02  DFHCLRP      PIC X VALUE X'6A'.
           02  DFHPEN       PIC X VALUE X'7E'.
           02  DFHOPID      PIC X VALUE X'E6'.
           02  DFHMSRE      PIC X VALUE X'E7'.
           02  DFHSTRF      PIC X VALUE X'88'.
           02  DFHTRIG      PIC X VALUE X'7F'.
           02  DFHPA1       PIC X VALUE X'6C'.
           02  DFHPA2       PIC X VALUE X'6E'.
           02  DFHPA3       PIC X VALUE X'6B'.
           02  DFHPF1       PIC X VALUE X'F1'.
           02  DFHPF2       PIC X VALUE X'F2'.
           02  DFHPF3       PIC X VALUE X'F3'.
           02  DFHPF4       PIC X VALUE X'F4'.
           02  DFHPF5       PIC X VALUE X'F5'.
           02  DFHPF6       PIC X VALUE X'F6'.
           02  DFHPF7       PIC X VALUE X'F7'.
           02  DFHPF8       PIC X VALUE X'F8'.
           02  DFHPF9       PIC X VALUE X'F9'.
           02  DFHPF10      PIC X VALUE X'7A'.
           02  DFHPF11      PIC X VALUE X'7B'.
           02  DFHPF12      PIC X VALUE X'7C'.
           02  DFHPF13      PIC X VALUE X'C1'.
           02  DFHPF14      PIC X VALUE X'C2'.
           02  DFHPF15      PIC X VALUE X'C3'.
           02  DFHPF16      PIC X VALUE X'C4'.
           02  DFHPF17      PIC X VALUE X'C5'.
           02  DFHPF18      PIC X VALUE X'C6'.
           02  DFHPF19      PIC X VALUE X'C7'.
           02  DFHPF20      PIC X VALUE X'C8'.
           02  DFHPF21      PIC X VALUE X'C9'.
           02  DFHPF22      PIC X VALUE X'4A'.
           02  DFHPF23      PIC X VALUE X'4B'.
           02  DFHPF24      PIC X VALUE X'4C'.
)";

/// Attributes of the fields of a map.
constexpr llvm::StringLiteral dfhbmsca = R"(       01  DFHBMSCA.
           02  DFHBMPEM     PIC X VALUE X'19'.
           02  DFHBMPNL     PIC X VALUE X'15'.
           02  DFHBMPFF     PIC X VALUE X'0C'.
           02  DFHBMPCR     PIC X VALUE X'0D'.
           02  DFHBMASK     PIC X VALUE X'F0'.
           02  DFHBMUNP     PIC X VALUE X'40'.
           02  DFHBMUNN     PIC X VALUE X'50'.
           02  DFHBMPRO     PIC X VALUE X'60'.
           02  DFHBMBRY     PIC X VALUE X'C8'.
           02  DFHBMDAR     PIC X VALUE X'4C'.
           02  DFHBMFSE     PIC X VALUE X'C1'.
           02  DFHBMPRF     PIC X VALUE X'61'.
           02  DFHBMASF     PIC X VALUE X'F1'.
           02  DFHBMASB     PIC X VALUE X'F8'.
           02  DFHBMEOF     PIC X VALUE X'80'.
           02  DFHBMCUR     PIC X VALUE X'02'.
           02  DFHBMEC      PIC X VALUE X'82'.
           02  DFHBMFLG     PIC X.
               88  DFHERASE VALUES X'80' X'82'.
               88  DFHCURSR VALUES X'02' X'82'.
           02  DFHBMDET     PIC X VALUE X'FF'.
           02  DFHBMPSO     PIC X VALUE X'0E'.
           02  DFHBMPSI     PIC X VALUE X'0F'.
           02  DFHSA        PIC X VALUE X'28'.
           02  DFHCOLOR     PIC X VALUE X'42'.
           02  DFHPS        PIC X VALUE X'43'.
           02  DFHHLT       PIC X VALUE X'41'.
           02  DFH3270      PIC X VALUE X'C0'.
           02  DFHVAL       PIC X VALUE X'C1'.
           02  DFHOUTLN     PIC X VALUE X'C2'.
           02  DFHBKTRN     PIC X VALUE X'46'.
           02  DFHALL       PIC X VALUE X'00'.
           02  DFHERROR     PIC X VALUE X'3F'.
           02  DFHDFT       PIC X VALUE X'FF'.
           02  DFHDFCOL     PIC X VALUE X'00'.
           02  DFHBLUE      PIC X VALUE X'F1'.
           02  DFHRED       PIC X VALUE X'F2'.
           02  DFHPINK      PIC X VALUE X'F3'.
           02  DFHGREEN     PIC X VALUE X'F4'.
           02  DFHTURQ      PIC X VALUE X'F5'.
           02  DFHYELLO     PIC X VALUE X'F6'.
           02  DFHNEUTR     PIC X VALUE X'F7'.
           02  DFHBASE      PIC X VALUE X'00'.
           02  DFHDFHI      PIC X VALUE X'00'.
           02  DFHBLINK     PIC X VALUE X'F1'.
           02  DFHREVRS     PIC X VALUE X'F2'.
           02  DFHUNDLN     PIC X VALUE X'F4'.
           02  DFHMFIL      PIC X VALUE X'04'.
           02  DFHMENT      PIC X VALUE X'02'.
           02  DFHMFE       PIC X VALUE X'06'.
           02  DFHMT        PIC X VALUE X'01'.
           02  DFHMFT       PIC X VALUE X'05'.
           02  DFHMET       PIC X VALUE X'03'.
           02  DFHMFET      PIC X VALUE X'07'.
           02  DFHUNNOD     PIC X VALUE X'4D'.
           02  DFHUNIMD     PIC X VALUE X'C9'.
           02  DFHUNNUM     PIC X VALUE X'D1'.
           02  DFHUNNUB     PIC X VALUE X'D8'.
           02  DFHUNINT     PIC X VALUE X'D9'.
           02  DFHUNNON     PIC X VALUE X'5D'.
           02  DFHPROTI     PIC X VALUE X'E8'.
           02  DFHPROTN     PIC X VALUE X'6C'.
           02  DFHDFFR      PIC X VALUE X'00'.
           02  DFHUNDER     PIC X VALUE X'01'.
           02  DFHRIGHT     PIC X VALUE X'02'.
           02  DFHOVER      PIC X VALUE X'04'.
           02  DFHLEFT      PIC X VALUE X'08'.
           02  DFHBOX       PIC X VALUE X'0F'.
           02  DFHSOSI      PIC X VALUE X'01'.
           02  DFHTRANS     PIC X VALUE X'F0'.
           02  DFHOPAQ      PIC X VALUE X'FF'.
)";

/// The DL/I interface block of EXEC DLI.
constexpr llvm::StringLiteral dlzdib = R"(       01  DLZDIB.
           02  DIBVER      PIC X(2).
           02  DIBSTAT     PIC X(2).
           02  DIBSEGM     PIC X(8).
           02  DIBFIL01    PIC X.
           02  DIBFIL02    PIC X.
           02  DIBSEGLV    PIC X(2).
           02  DIBKFBL     PIC S9(4) COMP.
           02  DIBDBDNM    PIC X(8).
           02  DIBDBORG    PIC X(8).
           02  DIBFIL03    PIC X(6).
)";

/// The communication area of SQL: what became of the last statement.
constexpr llvm::StringLiteral sqlca = R"(       01  SQLCA.
           05  SQLCAID     PIC X(8).
           05  SQLCABC     PIC S9(9) COMP-5.
           05  SQLCODE     PIC S9(9) COMP-5.
           05  SQLERRM.
               49  SQLERRML PIC S9(4) COMP-5.
               49  SQLERRMC PIC X(70).
           05  SQLERRP     PIC X(8).
           05  SQLERRD     PIC S9(9) COMP-5 OCCURS 6 TIMES.
           05  SQLWARN.
               10  SQLWARN0 PIC X.
               10  SQLWARN1 PIC X.
               10  SQLWARN2 PIC X.
               10  SQLWARN3 PIC X.
               10  SQLWARN4 PIC X.
               10  SQLWARN5 PIC X.
               10  SQLWARN6 PIC X.
               10  SQLWARN7 PIC X.
           05  SQLEXT.
               10  SQLWARN8 PIC X.
               10  SQLWARN9 PIC X.
               10  SQLWARNA PIC X.
               10  SQLSTATE PIC X(5).
)";

/// The descriptor area of dynamic SQL.
constexpr llvm::StringLiteral sqlda = R"(       01  SQLDA.
           05  SQLDAID     PIC X(8).
           05  SQLDABC     PIC S9(9) BINARY.
           05  SQLN        PIC S9(4) BINARY.
           05  SQLD        PIC S9(4) BINARY.
           05  SQLVAR OCCURS 0 TO 1489 TIMES DEPENDING ON SQLN.
               10  SQLVAR1.
                   15  SQLTYPE PIC S9(4) BINARY.
                   15  SQLLEN  PIC S9(4) BINARY.
                   15  FILLER REDEFINES SQLLEN.
                       20  SQLPRECISION PIC X.
                       20  SQLSCALE     PIC X.
                   15  SQLDATA POINTER.
                   15  SQLIND  POINTER.
                   15  SQLNAME.
                       49  SQLNAMEL PIC S9(4) BINARY.
                       49  SQLNAMEC PIC X(30).
               10  SQLVAR2 REDEFINES SQLVAR1.
                   15  SQLVAR2-RESERVED-1 PIC S9(9) BINARY.
                   15  SQLLONGLEN REDEFINES SQLVAR2-RESERVED-1
                               PIC S9(9) BINARY.
                   15  SQLVAR2-RESERVED-2 PIC S9(9) BINARY.
                   15  SQLDATALEN POINTER.
                   15  SQLDATATYPE-NAME.
                       49  SQLDATATYPE-NAMEL PIC S9(4) BINARY.
                       49  SQLDATATYPE-NAMEC PIC X(30).
)";

constexpr SuppliedCopybook copybooks[] = {
    {"DFHAID", SupplyOption::Cics, dfhaid},
    {"DFHBMSCA", SupplyOption::Cics, dfhbmsca},
    {"DFHCOMMAREA", SupplyOption::Cics, dfhcommarea},
    {"DFHEIBLK", SupplyOption::Cics, dfheiblk},
    {"DLZDIB", SupplyOption::Cics, dlzdib},
    {"SQLCA", SupplyOption::Sql, sqlca},
    {"SQLDA", SupplyOption::Sql, sqlda},
};

//===----------------------------------------------------------------------===//
// Constants
//===----------------------------------------------------------------------===//

struct CicsConstant {
  llvm::StringLiteral name;
  unsigned value;
};

/// The conditions that a command can raise, for DFHRESP.
constexpr CicsConstant conditions[] = {{"NORMAL", 0},
                                       {"ERROR", 1},
                                       {"RDATT", 2},
                                       {"WRBRK", 3},
                                       {"EOF", 4},
                                       {"EODS", 5},
                                       {"EOC", 6},
                                       {"INBFMH", 7},
                                       {"ENDINPT", 8},
                                       {"NONVAL", 9},
                                       {"NOSTART", 10},
                                       {"TERMIDERR", 11},
                                       {"DSIDERR", 12},
                                       {"FILENOTFOUND", 12},
                                       {"NOTFND", 13},
                                       {"DUPREC", 14},
                                       {"DUPKEY", 15},
                                       {"INVREQ", 16},
                                       {"IOERR", 17},
                                       {"NOSPACE", 18},
                                       {"NOTOPEN", 19},
                                       {"ENDFILE", 20},
                                       {"ILLOGIC", 21},
                                       {"LENGERR", 22},
                                       {"QZERO", 23},
                                       {"SIGNAL", 24},
                                       {"QBUSY", 25},
                                       {"ITEMERR", 26},
                                       {"PGMIDERR", 27},
                                       {"TRANSIDERR", 28},
                                       {"ENDDATA", 29},
                                       {"INVTSREQ", 30},
                                       {"EXPIRED", 31},
                                       {"RETPAGE", 32},
                                       {"RTEFAIL", 33},
                                       {"RTESOME", 34},
                                       {"TSIOERR", 35},
                                       {"MAPFAIL", 36},
                                       {"INVERRTERM", 37},
                                       {"INVMPSZ", 38},
                                       {"IGREQID", 39},
                                       {"OVERFLOW", 40},
                                       {"INVLDC", 41},
                                       {"NOSTG", 42},
                                       {"JIDERR", 43},
                                       {"QIDERR", 44},
                                       {"NOJBUFSP", 45},
                                       {"DSSTAT", 46},
                                       {"SELNERR", 47},
                                       {"FUNCERR", 48},
                                       {"UNEXPIN", 49},
                                       {"NOPASSBKRD", 50},
                                       {"NOPASSBKWR", 51},
                                       {"SEQIDERR", 52},
                                       {"SYSIDERR", 53},
                                       {"ISCINVREQ", 54},
                                       {"ENQBUSY", 55},
                                       {"ENVDEFERR", 56},
                                       {"IGREQCD", 57},
                                       {"SESSIONERR", 58},
                                       {"SYSBUSY", 59},
                                       {"SESSBUSY", 60},
                                       {"NOTALLOC", 61},
                                       {"CBIDERR", 62},
                                       {"INVEXITREQ", 63},
                                       {"INVPARTNSET", 64},
                                       {"INVPARTN", 65},
                                       {"PARTNFAIL", 66},
                                       {"USERIDERR", 69},
                                       {"NOTAUTH", 70},
                                       {"VOLIDERR", 71},
                                       {"SUPPRESSED", 72},
                                       {"NOSPOOL", 80},
                                       {"TERMERR", 81},
                                       {"ROLLEDBACK", 82},
                                       {"END", 83},
                                       {"DISABLED", 84},
                                       {"ALLOCERR", 85},
                                       {"STRELERR", 86},
                                       {"OPENERR", 87},
                                       {"SPOLBUSY", 88},
                                       {"SPOLERR", 89},
                                       {"NODEIDERR", 90},
                                       {"TASKIDERR", 91},
                                       {"TCIDERR", 92},
                                       {"DSNNOTFOUND", 93},
                                       {"LOADING", 94},
                                       {"MODELIDERR", 95},
                                       {"OUTDESCRERR", 96},
                                       {"PARTNERIDERR", 97},
                                       {"PROFILEIDERR", 98},
                                       {"NETNAMEIDERR", 99},
                                       {"LOCKED", 100},
                                       {"RECORDBUSY", 101},
                                       {"UOWNOTFOUND", 102},
                                       {"UOWLNOTFOUND", 103},
                                       {"LINKABEND", 104},
                                       {"CHANGED", 105},
                                       {"PROCESSBUSY", 106},
                                       {"ACTIVITYBUSY", 107},
                                       {"PROCESSERR", 108},
                                       {"ACTIVITYERR", 109},
                                       {"CONTAINERERR", 110},
                                       {"EVENTERR", 111},
                                       {"TOKENERR", 112},
                                       {"NOTFINISHED", 113},
                                       {"POOLERR", 114},
                                       {"TIMERERR", 115},
                                       {"SYMBOLERR", 116},
                                       {"TEMPLATERR", 117},
                                       {"NOTSUPERUSER", 118},
                                       {"CSDERR", 119},
                                       {"DUPRES", 120},
                                       {"RESUNAVAIL", 121},
                                       {"CHANNELERR", 122},
                                       {"CCSIDERR", 123},
                                       {"TIMEDOUT", 124},
                                       {"CODEPAGEERR", 125},
                                       {"INCOMPLETE", 126},
                                       {"APPNOTFOUND", 127},
                                       {"BUSY", 128}};

/// States of resources and conversations, for DFHVALUE. There are several hundred, these are the
/// ones that application programs ask about.
constexpr CicsConstant states[] = {
    {"NOTAPPLIC", 1},     {"BDAM", 2},       {"VSAM", 3},          {"REMOTE", 4},
    {"ESDS", 5},          {"KSDS", 6},       {"RRDS", 7},          {"OPEN", 18},
    {"CLOSED", 19},       {"OPENING", 20},   {"CLOSING", 21},      {"CLOSEREQUEST", 22},
    {"ENABLED", 23},      {"DISABLED", 24},  {"DISABLING", 25},    {"RECOVERABLE", 29},
    {"NOTRECOVABLE", 30}, {"EXCTL", 31},     {"NOTEXCTL", 32},     {"UNENABLED", 33},
    {"UNENABLING", 34},   {"READABLE", 35},  {"NOTREADABLE", 36},  {"UPDATABLE", 37},
    {"NOTUPDATABLE", 38}, {"BROWSABLE", 39}, {"NOTBROWSABLE", 40}, {"ADDABLE", 41},
    {"NOTADDABLE", 42},   {"DELETABLE", 43}, {"NOTDELETABLE", 44}, {"ACQUIRED", 69},
    {"RELEASED", 70},     {"ACQUIRING", 71}, {"INSERVICE", 73},    {"OUTSERVICE", 74},
    {"ALLOCATED", 81},    {"CONFFREE", 82},  {"CONFRECEIVE", 83},  {"CONFSEND", 84},
    {"FREE", 85},         {"PENDFREE", 86},  {"PENDRECEIVE", 87},  {"RECEIVE", 88},
    {"ROLLBACK", 89},     {"SEND", 90},      {"SYNCFREE", 91},     {"SYNCRECEIVE", 92},
    {"SYNCSEND", 93}};

} // namespace

bool SuppliedCopybook::isWanted(const ParseOptions &options) const {
  return option == SupplyOption::Cics ? options.cics : options.sql;
}

const SuppliedCopybook *findSuppliedCopybook(llvm::StringRef name) {
  const auto *found = llvm::find_if(copybooks, [name](const SuppliedCopybook &copybook) {
    return name.equals_insensitive(copybook.name);
  });
  return found == std::end(copybooks) ? nullptr : found;
}

std::optional<unsigned> cicsConstant(Keyword keyword, llvm::StringRef name) {
  llvm::ArrayRef<CicsConstant> table = conditions;
  if (keyword == Keyword::Dfhvalue)
    table = states;
  const auto *found = llvm::find_if(table, [name](const CicsConstant &constant) {
    return name.equals_insensitive(constant.name);
  });
  if (found == table.end())
    return std::nullopt;
  return found->value;
}

llvm::StringRef nearestCicsCondition(llvm::StringRef name) {
  std::string upper = name.upper();
  SpellingMatch match(upper);
  for (const CicsConstant &condition : conditions)
    match.consider(condition.name);
  return match.getNearest();
}

} // namespace tarka
