//===- FileOperands.h - the operands that statements of files share -------===//
//
// File-names, record-names, FROM and INTO items and keys, which OPEN, READ,
// WRITE, RETURN, RELEASE, SORT and the others have in common. Each function
// checks an operand whole, its name included, and reports at the operand.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_LIB_ANALYZER_FILEOPERANDS_H
#define TARKA_LIB_ANALYZER_FILEOPERANDS_H

#include "AST/Expression.h"
#include "AST/FileDescription.h"
#include "Analyzer/SemanticChecker.h"

namespace tarka {

/// The FD or SD entry that an item of the file section belongs to; null for every other item.
const FileDescription *fileOfItem(const DataDescription &item);

/// True when the records of \p file can differ in length.
bool hasVariableRecords(const FileDescription &file);

/// A file-name that stands for an entry of \p type, FD or SD.
bool checkFileName(SemanticChecker &checker, FileIdentifierExpression &name, FileDescType type);

/// The file has a record, as long as anything is known of it. \p name is bound.
bool checkFileHasRecord(SemanticChecker &checker, FileIdentifierExpression &name);

/// A record-name of an entry of \p type. \p notRecord tells about what is no name of a record.
bool checkRecordName(SemanticChecker &checker, IdentifierExpression &name, FileDescType type,
                     ErrorCode notRecord);

/// The item of FROM. When \p isRecordRight, \p record is a record-name, which the item is moved to;
/// \p sameStorage tells that the two share their storage.
bool checkFrom(SemanticChecker &checker, IdentifierExpression &from, IdentifierExpression &record,
               bool isRecordRight, ErrorCode sameStorage);

/// The item of INTO. When \p isFileRight, the record of \p file is moved to it; \p sameStorage
/// tells that it stands in the record area itself, \p notReceiver that nothing can be moved to it.
bool checkInto(SemanticChecker &checker, IdentifierExpression &into, FileIdentifierExpression &file,
               bool isFileRight, ErrorCode sameStorage, ErrorCode notReceiver);

/// A data-name without subscripts, as a KEY phrase names: its entry, or null when it is none.
DataDescription *checkKeyName(SemanticChecker &checker, IdentifierExpression &name);

} // namespace tarka

#endif // TARKA_LIB_ANALYZER_FILEOPERANDS_H
