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

/// The front end's messages about COPY: text is missing of which not even the names are known.
inline bool isAboutCopy(int number) {
  return 40 <= number && number <= 49;
}

/// Those after which a whole copybook is missing, but the text around it is as it should be.
inline bool isMissingCopybook(int number) {
  return 43 <= number && number <= 49;
}

/// The front end's message about a reserved word in the place of something else.
inline bool isReservedWord(int number) {
  return number == 201;
}

inline bool isWrongPicture(int number) {
  return number == 3242;
}

/// Numbers of references that cannot be understood.
inline bool isAboutReference(int number) {
  return 3310 <= number && number <= 3316;
}

/// Numbers that say that a procedure-name means nothing, or more than one procedure.
inline bool isAboutProcedure(int number) {
  return 3401 <= number && number <= 3403;
}

/// Numbers that say that the SELECT and FD entries and the uses of a file do not go together.
inline bool isAboutFile(int number) {
  return number == 3150 || number == 3324 || number == 5021;
}

/// Numbers that say that nothing has a name.
inline bool isAboutMissingName(int number) {
  return number == 3310 || number == 3150 || number == 3324 || number == 3403;
}

/// Numbers that say that nothing, or more than one thing, has a name.
inline bool isAboutName(int number) {
  return number == 3310 || number == 3311 || number == 3312 || number == 5201 ||
         isAboutFile(number) || isAboutProcedure(number);
}

} // namespace tarka

#endif // TARKA_LIB_REPORT_NUMBERCLASSES_H
