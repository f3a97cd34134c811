//===- SCDivisionEnvironment.cpp - the environment division --------------===//
//
// The order of the paragraphs, SOURCE-COMPUTER and OBJECT-COMPUTER. The other
// paragraphs have their own files: SCSpecialNames.cpp, SCFileControl.cpp and
// SCIOControl.cpp.
//
//===----------------------------------------------------------------------===//

#include "AST/Program.h"
#include "Analyzer/Environment/EnvironmentCheck.h"
#include "Analyzer/NamedReport.h"
#include "Analyzer/PartCheck.h"
#include "Analyzer/SemanticChecker.h"
#include <cstdlib>

namespace tarka {

bool SemanticChecker::semanticCheck(EnvironmentDivision &division) {
  bool ok = true;
  if (ConfigurationSection *configuration = division.getConfigurationSection()) {
    if (ParaSourceComputer *paragraph = configuration->getSourceComputer())
      ok &= PartCheck(*this, CheckedPart::Entry, *paragraph).done(semanticCheck(*paragraph));
    if (ParaObjectComputer *paragraph = configuration->getObjectComputer())
      ok &= PartCheck(*this, CheckedPart::Entry, *paragraph).done(semanticCheck(*paragraph));
    if (ParaSpecialNames *paragraph = configuration->getSpecialNames())
      ok &= PartCheck(*this, CheckedPart::Entry, *paragraph).done(semanticCheck(*paragraph));
  }
  InputOutputSection *inputOutput = division.getInputOutputSection();
  if (!inputOutput)
    return ok;
  for (ParaFileControl *entry : inputOutput->getFileControlListElements())
    ok &= PartCheck(*this, CheckedPart::Entry, *entry).done(semanticCheck(*entry));
  // Without an entry in FILE-CONTROL, I-O-CONTROL is not checked.
  if (inputOutput->getFileControlListSize() > 0 && inputOutput->getIOControlListSize() > 0 &&
      *inputOutput->getIOControlListBegin())
    for (ParaIOControl *entry : inputOutput->getIOControlListElements())
      ok &= PartCheck(*this, CheckedPart::Entry, *entry).done(semanticCheck(*entry));
  return ok;
}

bool SemanticChecker::semanticCheck(ParaSourceComputer &) {
  return true;
}

bool SemanticChecker::semanticCheck(ParaObjectComputer &paragraph) {
  bool ok = true;
  if (ClauseMemorySize *memory = paragraph.getMemSize()) {
    ok &= semanticCheck(*memory->getSize());
    if (!memory->getSize()->isInteger())
      ok = report(ErrorCode::MemorySizeNotInteger, memory->getSize());
  }
  if (ClauseSequence *sequence = paragraph.getSequence())
    if (!isAlphabetOfProgram(sequence->getSequence()))
      return reportName(*this, ErrorCode::AlphabetNameRequired, sequence, sequence->getSequence());
  if (ClauseSegmentLimit *segment = paragraph.getSegment()) {
    NumericLiteralExpression &limit = *segment->getLimit();
    ok &= semanticCheck(limit);
    if (!limit.isInteger())
      ok = report(ErrorCode::SegmentLimitRange, &limit);
    if (isSignedOrNotPositive(limit))
      ok = report(ErrorCode::SegmentLimitRange, &limit);
    int value = std::atoi(limit.getData().c_str());
    if (value < 1 || value > 49)
      ok = report(ErrorCode::SegmentLimitRange, &limit);
  }
  return ok;
}

} // namespace tarka
