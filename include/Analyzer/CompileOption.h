//===- CompileOption.h - the compile options --------------------*- C++ -*-===//
//
// The options of a compilation. The driver gives them as one value to
// TopLevel::beginCompilation(); the analysis reads them from CompileOption.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_ANALYZER_COMPILEOPTION_H
#define TARKA_ANALYZER_COMPILEOPTION_H

#include <string>

namespace tarka {

/// The options of one compilation, each off unless it is set.
struct CompileSettings {
  bool checkFileID = false;   ///< the PROGRAM-ID must be the base name of the input
  bool dateproc = false;      ///< DATE FORMAT clauses are honoured
  bool debug = false;         ///< calls are lowered for the debugger
  bool dual = false;          ///< decimal records are kept in binary as well
  bool init = false;          ///< entries without VALUE are initialised by their category
  bool enableCbltdli = false; ///< calls of the DL/I interface CBLTDLI are recognised
  bool enableAertdli = false; ///< calls of the DL/I interface AERTDLI are recognised
  bool enableRw = false;      ///< the registers and identifiers of the report writer exist
  bool enableOsvs = false;    ///< the extensions of OS/VS COBOL are accepted
  bool enterprise = false;    ///< the rules of EnterpriseRules.def follow Enterprise COBOL
};

/// The compile options: one record for the process, made on first use and never destroyed. Every
/// option that can be queried is off until it is set.
class CompileOption {
public:
  /// The record of the process; never null.
  static CompileOption *getCompileOptionInstance();

  CompileOption(const CompileOption &) = delete;
  CompileOption &operator=(const CompileOption &) = delete;

  /// Sets all options for a new compilation. What the previous compilation has set, such as the
  /// EBCDIC collating sequence, is reset.
  void apply(const CompileSettings &settings);

  /// The PROGRAM-ID must be the base name of the input.
  bool isCheckFileID() const { return checkFileID; }
  void setCheckFileID(bool on) { checkFileID = on; }

  /// DATE FORMAT clauses are honoured.
  bool isOptionDateproc() const { return dateproc; }
  void setOptionDateproc(bool on) { dateproc = on; }

  /// Debugging mode, in which calls are lowered for the debugger.
  bool isOptionDebug() const { return debug; }
  void setOptionDebug(bool on) { debug = on; }

  /// Dual mode of data entries.
  bool isOptionDual() const { return dual; }
  void setOptionDual(bool on) { dual = on; }

  /// Entries without VALUE are initialised by their category.
  bool isOptionInit() const { return init; }
  void setOptionInit(bool on) { init = on; }

  /// Calls of the DL/I interfaces CBLTDLI and AERTDLI are recognised.
  bool isOptionEnableCbltdli() const { return enableCbltdli; }
  void setOptionEnableCbltdli(bool on) { enableCbltdli = on; }
  bool isOptionEnableAertdli() const { return enableAertdli; }
  void setOptionEnableAertdli(bool on) { enableAertdli = on; }

  /// The special registers and identifiers of the report writer exist.
  bool isOptionEnableRw() const { return enableRw; }
  void setOptionEnableRw(bool on) { enableRw = on; }

  /// The extensions of OS/VS COBOL are accepted.
  bool isOptionEnableOsvs() const { return enableOsvs; }
  void setOptionEnableOsvs(bool on) { enableOsvs = on; }

  /// The checks follow Enterprise COBOL in the cases of EnterpriseRules.def.
  bool isOptionEnterprise() const { return enterprise; }
  void setOptionEnterprise(bool on) { enterprise = on; }

  /// The program collating sequence is EBCDIC; the ALPHABET clause sets it.
  bool isOptionSeqEbcdic() const { return seqEbcdic; }
  void setOptionSeqEbcdic(bool on) { seqEbcdic = on; }

private:
  CompileOption() = default;
  CompileOption &operator=(CompileOption &&) = default;

  // Fields without accessors belong to other stages that share the record.
  [[maybe_unused]] bool reserved1 = false;
  [[maybe_unused]] bool reserved2 = false;
  [[maybe_unused]] bool reserved3 = false;
  bool checkFileID = false;
  [[maybe_unused]] bool reserved4 = true;
  [[maybe_unused]] bool reserved5 = false;
  [[maybe_unused]] bool reserved6 = false;
  [[maybe_unused]] bool reserved7 = false;
  bool dateproc = false;
  bool debug = false;
  [[maybe_unused]] bool reserved8 = false;
  bool dual = false;
  bool init = false;
  [[maybe_unused]] int reservedCount = 0;
  [[maybe_unused]] bool reserved9 = false;
  [[maybe_unused]] bool reserved10 = false;
  bool enableCbltdli = false;
  bool enableAertdli = false;
  bool enableRw = false;
  bool enableOsvs = false;
  bool seqEbcdic = false;
  [[maybe_unused]] bool reserved11 = false;
  /// The four letters stand for a text that is not set.
  std::string optionText = "NULL";
  /// After the fields that other stages share, whose order is fixed.
  bool enterprise = false;
};

} // namespace tarka

#endif // TARKA_ANALYZER_COMPILEOPTION_H
