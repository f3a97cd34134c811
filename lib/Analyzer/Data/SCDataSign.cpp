//===- SCDataSign.cpp - SIGN --------------------------------------------===//
//
// Where the sign of a number is stored. A group passes the clause to its items.
//
//===----------------------------------------------------------------------===//

#include "AST/ClausePicture.h"
#include "AST/DataDescription.h"
#include "Analyzer/EnterpriseRules.h"
#include "Analyzer/SemanticChecker.h"

namespace tarka {

/// A group passes its SIGN to every item below it that has none. At least one of them must be able
/// to have it.
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

/// Whether the SIGN of a group applies to the elementary item \p item: it is a signed number whose
/// digits are characters.
static bool takesSignOfGroup(const DataDescription &item) {
  const UsageType usage = item.getUsageType();
  return item.getPicture() && item.getPicture()->isSigned() &&
         (usage == UsageType::Display || usage == UsageType::National);
}

bool SemanticChecker::checkSignElement(DataDescription *item, ClauseSign *inherited) {
  if (inherited) {
    // The item's own clause has been checked with the item.
    if (item->getSign())
      return true;
    if (followsEnterprise(EnterpriseRule::SignOfGroup) && !item->isGroupItem() &&
        !takesSignOfGroup(*item))
      return false;
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
  if (sign && sign->isSeperate() && usage == UsageType::National &&
      !followsEnterprise(EnterpriseRule::SignSeparateNational))
    ok = report(ErrorCode::SignSeparateUsageNotDisplay, item);
  return ok;
}

} // namespace tarka
