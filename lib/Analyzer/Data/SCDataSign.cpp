//===- SCDataSign.cpp - SIGN --------------------------------------------===//
//
// Where the sign of a number stands. A group hands the clause down to its items.
//
//===----------------------------------------------------------------------===//

#include "AST/ClausePicture.h"
#include "AST/DataDescription.h"
#include "Analyzer/SemanticChecker.h"

namespace tarka {

/// The SIGN of a group goes down to every item that has none; one that can have it is enough.
bool SemanticChecker::checkClauseSign(DataDescription &entry) {
  if (!entry.isGroupItem()) {
    if (!checkSignElement(&entry, nullptr))
      return report(ErrorCode::SignUsageOrPicture, &entry);
    return true;
  }
  bool isUsed = false;
  for (DataDescription *child : entry.getChildrenElements())
    isUsed |= checkSignElement(child, entry.getSign());
  if (!isUsed)
    return report(ErrorCode::SignGroupWithoutSignedItem, &entry);
  return true;
}

bool SemanticChecker::checkSignElement(DataDescription *item, ClauseSign *inherited) {
  if (inherited) {
    // An own clause has been checked with the item itself.
    if (item->getSign())
      return true;
    item->setSign(inherited);
  }
  const ClauseSign *sign = item->getSign();
  if (item->isGroupItem()) {
    bool isUsed = false;
    for (DataDescription *child : item->getChildrenElements())
      isUsed |= checkSignElement(child, item->getSign());
    return isUsed;
  }

  const ClausePicture *picture = item->getPicture();
  if (!picture)
    return report(ErrorCode::SignNeedsPicture, item);
  bool ok = true;
  const UsageType usage = item->getUsageType();
  if (!picture->isSigned())
    ok = report(ErrorCode::SignNotSignedNumeric, item);
  if (usage != UsageType::Display && usage != UsageType::National)
    ok = report(ErrorCode::SignUsageNotDisplayOrNational, item);
  if (sign && sign->isSeperate() && usage == UsageType::National)
    ok = report(ErrorCode::SignSeparateUsageNotDisplay, item);
  return ok;
}

} // namespace tarka
