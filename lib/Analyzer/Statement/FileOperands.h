//===- FileOperands.h - the operands that statements of files share -------===//
//
// File-names, record-names, FROM and INTO items and keys, which OPEN, READ,
// WRITE, RETURN, RELEASE, SORT and the others have in common. Each function
// checks an operand whole, its name included, and reports at the operand.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_LIB_ANALYZER_FILEOPERANDS_H
#define TARKA_LIB_ANALYZER_FILEOPERANDS_H

#include "AST/Environment.h"
#include "AST/Expression.h"
#include "AST/FileDescription.h"
#include "Analyzer/SemanticChecker.h"

namespace tarka {

/// The SELECT entry that a bound file-name leads to; null when the file has none.
inline const ParaFileControl *controlOf(const FileIdentifierExpression &name) {
  return name.getFileDescription()->getFileControl();
}

/// Whether the organization is sequential or line sequential.
inline bool isSequential(const ParaFileControl &control) {
  return control.getOrganizationType() == OrganizationType::Sequential ||
         control.getOrganizationType() == OrganizationType::LineSequential;
}

/// The access mode; sequential where none is written.
inline AccessType accessOf(const ParaFileControl &control) {
  return control.getAccess() ? control.getAccess()->getType() : AccessType::Sequential;
}

/// The FD or SD entry that an item of the file section belongs to; null for every other item.
const FileDescription *fileOfItem(const DataDescription &item);

/// True when the records of \p file can differ in length.
bool hasVariableRecords(const FileDescription &file);

/// A file-name that stands for an entry of \p type, FD or SD.
bool checkFileName(SemanticChecker &checker, FileIdentifierExpression &name, FileDescType type);

/// The file has a record, as far as anything is known about it. \p name is bound.
bool checkFileHasRecord(SemanticChecker &checker, FileIdentifierExpression &name);

/// A record-name of an entry of \p type. \p notRecord is reported for what is not a record-name.
bool checkRecordName(SemanticChecker &checker, IdentifierExpression &name, FileDescType type,
                     ErrorCode notRecord);

/// The item of FROM. When \p isRecordRight, \p record is a record-name, which the item is moved to;
/// \p sameStorage is reported when the two share their storage.
bool checkFrom(SemanticChecker &checker, IdentifierExpression &from, IdentifierExpression &record,
               bool isRecordRight, ErrorCode sameStorage);

/// The item of INTO. When \p isFileRight, the record of \p file is moved to it; \p sameStorage
/// is reported when it is in the record area itself, \p notReceiver when nothing can be moved to
/// it.
bool checkInto(SemanticChecker &checker, IdentifierExpression &into, FileIdentifierExpression &file,
               bool isFileRight, ErrorCode sameStorage, ErrorCode notReceiver);

/// A data-name without subscripts, as a KEY phrase names: its entry, or null when it is none.
DataDescription *checkKeyName(SemanticChecker &checker, IdentifierExpression &name);

} // namespace tarka

#endif // TARKA_LIB_ANALYZER_FILEOPERANDS_H
