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

/// The front end's message about a directive of a conditional that nothing begins.
inline bool isStrayDirective(int number) {
  return number == 82;
}

/// The front end's messages about text past column 72.
inline bool isTextPastMargin(int number) {
  return 29 <= number && number <= 31;
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

/// The USAGE of an entry is not that of its group.
inline bool isDifferentUsage(int number) {
  return number == 3279;
}

/// An entry that has members has a PICTURE or a USAGE of its own as well.
inline bool isGroupWithPicture(int number) {
  return number == 3241 || isDifferentUsage(number);
}

/// The front end's messages about an entry before which its record, or the entry of the file or
/// report that it belongs to, is missing.
inline bool isMissingRecord(int number) {
  return 250 <= number && number <= 255;
}

/// The front end's message about a header that is missing.
inline bool isMissingHeader(int number) {
  return number == 231;
}

inline bool isEmptyGroup(int number) {
  return number == 3575;
}

/// An entry whose USAGE needs a PICTURE, or members, has none.
inline bool isWithoutPicture(int number) {
  return number == 3340;
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
  return number == 3118 || number == 3404 || number == 3405 || number == 3487 || number == 3507 ||
         number == 3561;
}
inline bool isUnknownDevice(int number) {
  return number == 3104;
}

/// Numbers of the rules for embedded languages.
inline bool isAboutEmbedded(int number) {
  return 5200 < number && number < 5300;
}

/// Text of an embedded block that could not be read.
inline bool isUnreadText(int number) {
  return number == 5204;
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

/// SUPPRESS outside of a declarative for a report group, among others.
inline bool isInvalidStatement(int number) {
  return number == 3409;
}

/// ALTER of a paragraph that is no GO TO alone.
inline bool isAboutAlteredParagraph(int number) {
  return number == 3406;
}

/// A phrase without statements.
inline bool isAboutPhrase(int number) {
  return number == 3471;
}

/// An argument that does not fit the parameter of the program called.
inline bool isAboutArgument(int number) {
  return number == 3439;
}

/// What an embedded command lacks, which may be in lines that are not part of it.
inline bool isMissingFromCommand(int number) {
  return 5217 <= number && number <= 5219;
}

/// Numbers that say of every use of a name that what it names is of the wrong kind: the declaration
/// is wrong, or is there twice.
inline bool isAboutKind(int number) {
  return number == 3316 || number == 3323 || number == 3529 || number == 3330 ||
         (isAboutMnemonicName(number) && number != 3118);
}

/// A name that several entries have.
inline bool isAmbiguous(int number) {
  return number == 3311 || number == 5202;
}

/// A REDEFINES that does not follow what it redefines.
inline bool isWrongRedefinition(int number) {
  return number == 3251;
}

/// The front end's message about a period that is missing before the next line.
inline bool isMissingPeriod(int number) {
  return number == 220;
}

/// The front end's message about an END- word without its statement.
inline bool isStrayEnd(int number) {
  return number == 424;
}

/// Numbers that say of an item that the entries behind it cannot belong to it, or of an entry that
/// it cannot belong to the item before it: the line with the name that they belong to may be
/// missing.
inline bool isMissingLine(int number) {
  return number == 3203 || number == 3241 || number == 3279 || number == 3294 || number == 3295;
}

/// A PICTURE that does not fit the USAGE of its item, which may be that of a group.
inline bool isPictureAgainstUsage(int number) {
  return number == 3242;
}

/// A FILE STATUS item in the records of a file: the header of the section that it belongs to may be
/// missing.
inline bool isInFileSection(int number) {
  return number == 3122 || number == 3125;
}

/// Numbers that say that a file or its organization does not go with a record or with the statement
/// for it: with the FD or SD entry of another file missing, its records belong to this one.
inline bool isAboutRecordArea(int number) {
  return isInFileSection(number) || number == 3127 || number == 3550 || number == 3551 ||
         number == 3559 || number == 3565 || number == 3570 || number == 3574 || number == 5026 ||
         number == 5027;
}

/// Two paragraphs of one name in a section, and EXIT SECTION outside of sections.
inline bool isAboutSectionLimits(int number) {
  return number == 3401 || number == 5013;
}

/// A record that needs to be in the linkage section and is not.
inline bool isAboutLinkage(int number) {
  return number == 3001 || number == 5016 || number == 5044;
}

/// A record that is longer than those of the sort file.
inline bool isAboutSortRecord(int number) {
  return number == 3570;
}

/// The front end's messages about a word that begins no statement.
inline bool isStrayWord(int number) {
  return number == 420 || number == 421;
}

/// A file that has a SELECT entry only.
inline bool isSelectOnly(int number) {
  return number == 5021;
}

/// A key that is no key of its file.
inline bool isAboutKeyOfFile(int number) {
  return number == 3566;
}

/// A data-name that is not in the group that qualifies it.
inline bool isMissingFromScope(int number) {
  return number == 3312;
}

/// SEARCH of a table that has no index, among others.
inline bool isAboutSearchedTable(int number) {
  return number == 3492;
}

/// A special register that no file or statement of the program makes.
inline bool isAboutSpecialRegister(int number) {
  return number == 3320;
}

/// A data-name that is not declared.
inline bool isUndefined(int number) {
  return number == 3310;
}

/// Numbers of references that cannot be understood.
inline bool isAboutReference(int number) {
  return 3310 <= number && number <= 3316;
}

/// Numbers that say that an item needs more or fewer subscripts.
inline bool isAboutSubscripts(int number) {
  return number == 3316 || number == 5002;
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

/// Numbers that say that a CURRENCY SIGN clause is wrong, and that a picture needs one.
inline bool isAboutCurrencySign(int number) {
  return number == 3116 || number == 3117 || number == 3248;
}

inline bool isAboutCurrencySymbol(int number) {
  return number == 3246 || number == 3247;
}

/// Numbers that say that the level number of an entry, or the entry for its level, is wrong.
inline bool isWrongLevel(int number) {
  return number == 3201 || number == 3205;
}

/// An entry that its group cannot have.
inline bool isWrongMember(int number) {
  return number == 3203;
}

/// Those that say of a group that it is wrong, which an entry of a wrong level in it can cause.
inline bool isWrongHierarchy(int number) {
  return isWrongMember(number) || number == 3208 || number == 3216 || number == 3241;
}

inline bool isAboutSign(int number) {
  return 3267 <= number && number <= 3272;
}

/// Numbers that say that the VALUE of a group does not fit an item in it.
inline bool isAboutGroupValue(int number) {
  return number == 3282 || number == 3283 || number == 3286;
}

/// Numbers that say that a condition-name does not have the type of its item.
inline bool isAboutConditionType(int number) {
  return number == 3294 || number == 3295;
}

/// Numbers that say that an entry does not go with the entries that belong to it.
inline bool isAboutMembers(int number) {
  return isGroupWithPicture(number) || isWrongHierarchy(number) || isEmptyGroup(number) ||
         isWithoutPicture(number) || isAboutConditionType(number);
}

/// Numbers of errors that DECIMAL-POINT IS COMMA, CURRENCY SIGN, or a name that SPECIAL-NAMES
/// declares, can avoid.
inline bool dependsOnSpecialNames(int number) {
  return isAboutMnemonicName(number) || isAboutClassName(number) || isPictureAgainstUsage(number) ||
         number == 3141 || number == 3293;
}

/// A number for each fault that several checks find at one place, one after the other; 0 for other
/// errors.
inline int faultOf(int number) {
  switch (number) {
  case 3203: // members whose group cannot have them
    return 3203;
  case 3202: // a clause that level 66 cannot have
  case 3218:
  case 3277:
  case 3340:
    return 3202;
  case 3205: // a clause that level 88 cannot have
  case 3206:
    return 3205;
  case 3240: // PICTURE and USAGE that do not fit
  case 3242:
  case 3243:
  case 3278:
    return 3240;
  case 3159: // a number that is not an unsigned integer
  case 3160:
    return 3159;
  case 3435: // an operand of PERFORM that is not an elementary number
  case 3437:
    return 3435;
  default:
    break;
  }
  if (isAboutConditionType(number)) // values of the condition-names of one item
    return number;
  if (isAboutProcedure(number))
    return 3401;
  if (3207 <= number && number <= 3211) // BLANK WHEN ZERO
    return 3207;
  if (isAboutSign(number))
    return 3267;
  if (isAboutGroupValue(number))
    return 3282;
  if (isAboutCurrencySign(number))
    return 3116;
  // The literals of VALUE.
  return 3284 <= number && number <= 3299 ? 3284 : 0;
}

inline bool isAboutMove(int number) {
  return number == 3468;
}

/// Numbers that say that a VALUE does not fit its item.
inline bool isAboutInitialValue(int number) {
  return number == 3284 || number == 3285 || (3291 <= number && number <= 3293) ||
         (3296 <= number && number <= 3299) || number == 3325 || number == 3576;
}

} // namespace tarka

#endif // TARKA_LIB_REPORT_NUMBERCLASSES_H
