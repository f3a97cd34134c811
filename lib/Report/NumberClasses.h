//===- NumberClasses.h - what the numbers of errors say ---------*- C++ -*-===//
//
// The classes of diagnostics that matter to what follows from them.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_LIB_REPORT_NUMBERCLASSES_H
#define TARKA_LIB_REPORT_NUMBERCLASSES_H

namespace tarka {

inline bool isOfFrontEnd(int number) {
  return number < 1000;
}

/// The front end's messages about COPY and about what it and REPLACE replace: text is missing of
/// which not even the names are known.
inline bool isAboutCopy(int number) {
  return (40 <= number && number <= 49) || (60 <= number && number <= 67);
}

/// The front end's warning that the rest of a line is not read.
inline bool isCutLine(int number) {
  return number == 30;
}

/// Those after which a whole copybook is missing, but the text around it is as it should be.
inline bool isMissingCopybook(int number) {
  return 43 <= number && number <= 49;
}

/// The front end's message about a reserved word in the place of something else.
inline bool isReservedWord(int number) {
  return number == 201;
}

/// Numbers that say that an entry cannot be what its PICTURE and USAGE, or its members, make it.
inline bool isWrongShape(int number) {
  return number == 3241 || number == 3242 || number == 3279;
}

/// An entry that has members has a PICTURE as well.
inline bool isGroupWithPicture(int number) {
  return number == 3241;
}

inline bool isEmptyGroup(int number) {
  return number == 3575;
}

inline bool isFileWithoutRecords(int number) {
  return number == 3529;
}

/// A record that is written belongs to no file.
inline bool isRecordOfNoFile(int number) {
  return number == 3550;
}

/// Numbers about a mnemonic-name that no device has, and about a name for no device.
inline bool isAboutMnemonicName(int number) {
  return number == 3404 || number == 3405 || number == 3487 || number == 3507 || number == 3561;
}
inline bool isUnknownDevice(int number) {
  return number == 3104;
}

/// Numbers of the rules for embedded languages.
inline bool isAboutEmbedded(int number) {
  return 5200 < number && number < 5300;
}

inline bool isAboutClassName(int number) {
  return number == 3337;
}

/// The number of the checks that says the same as \p number, which may be that of a rule about
/// names in embedded blocks.
inline int withoutLanguage(int number) {
  switch (number) {
  case 5201:
    return 3310;
  case 5202:
    return 3311;
  case 5203:
    return 3403;
  default:
    return number;
  }
}

/// A data-name that is not declared.
inline bool isUndefined(int number) {
  return number == 3310;
}

/// Numbers of references that cannot be understood.
inline bool isAboutReference(int number) {
  return 3310 <= number && number <= 3316;
}

/// Numbers that say that a procedure-name means nothing, or more than one procedure.
inline bool isAboutProcedure(int number) {
  return (3401 <= number && number <= 3403) || number == 5203;
}

/// Numbers that say that the SELECT and FD entries and the uses of a file do not go together.
inline bool isAboutFile(int number) {
  return number == 3150 || number == 3324 || number == 5021 || number == 5022;
}

/// Numbers that say that nothing has a name.
inline bool isAboutMissingName(int number) {
  return number == 3310 || number == 3150 || number == 3324 || number == 3403 || number == 5201 ||
         number == 5203;
}

/// Numbers that say that nothing, or more than one thing, has a name.
inline bool isAboutName(int number) {
  return number == 3310 || number == 3311 || number == 3312 || number == 5201 || number == 5202 ||
         isAboutFile(number) || isAboutProcedure(number) || isAboutClassName(number);
}

} // namespace tarka

#endif // TARKA_LIB_REPORT_NUMBERCLASSES_H
