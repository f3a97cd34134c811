//===- SuppliedText.cpp - copybooks that come with CICS and DB2 -----------===//

#include "Parse/SuppliedText.h"
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

} // namespace tarka
