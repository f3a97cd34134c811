//===- ErrorHandlerTest.cpp - the catalogue and the report ----------------===//

#include "Analyzer/ErrorHandler.h"
#include "AST/Node.h"
#include "llvm/ADT/ArrayRef.h"
#include "llvm/ADT/STLExtras.h"
#include "llvm/ADT/StringRef.h"
#include "gtest/gtest.h"
#include <vector>

using namespace tarka;

namespace {

/// Numbers that follow one another, from the row \p first.
struct NumberRun {
  int first;
  int last;
  int number;
};

TEST(DiagnosticCatalogue, NumbersComeInTheirRuns) {
  const NumberRun runs[] = {
      {0, 0, 1001},     {1, 1, 2301},     {2, 9, 3001},     {10, 45, 3101},   {46, 47, 3140},
      {48, 63, 3150},   {64, 95, 3201},   {96, 104, 3240},  {105, 112, 3251}, {113, 132, 3261},
      {133, 134, 3339}, {135, 180, 3281}, {181, 183, 3527}, {184, 192, 3330}, {193, 217, 3401},
      {218, 225, 3430}, {226, 321, 3439}, {322, 348, 3550}, {349, 352, 4000},
  };
  ASSERT_EQ(DiagnosticCount, 353u);
  int row = 0;
  for (const NumberRun &run : runs) {
    ASSERT_EQ(row, run.first);
    for (; row <= run.last; ++row)
      EXPECT_EQ(ErrorInfoStruct[row].number, run.number + row - run.first) << "row " << row;
  }
  EXPECT_EQ(row, 353);
  EXPECT_EQ(ErrorInfoStruct[353].number, 0);
  EXPECT_STREQ(ErrorInfoStruct[353].format, "");
}

TEST(DiagnosticCatalogue, SevenFormatsTakeATextAndNoneTakesMore) {
  std::vector<int> withText;
  for (auto [row, info] : llvm::enumerate(llvm::ArrayRef(ErrorInfoStruct, DiagnosticCount))) {
    llvm::StringRef format = info.format;
    ASSERT_EQ(format.count("%s"), format.count('%')) << "row " << row;
    if (format.contains('%'))
      withText.push_back(info.number);
  }
  EXPECT_EQ(withText, (std::vector<int>{3304, 3305, 3306, 3307, 3311, 3312, 3424}));
}

TEST(DiagnosticCatalogue, TextsKeepTheirOddities) {
  EXPECT_STREQ(errorInfo(ErrorCode::UseDebuggingWithFileName).format,
               "Invalid use of USE statement with  file name");
  EXPECT_STREQ(errorInfo(ErrorCode::UsageBitPicture).format,
               "The USAGE IS BIT can only be used with a PICTURE string \"1\".");
  EXPECT_STREQ(errorInfo(ErrorCode::GroupWithoutChildren).format,
               "The Group item must have child more than one. ");
  EXPECT_STREQ(errorInfo(ErrorCode::FileStatusUsageOrPicture).format,
               "A numeric Data Item can not contain a \xE2\x80\x98P\xE2\x80\x99 character in the "
               "picture clause.");
}

/// What Report() prints.
std::string reportOf(ErrorHandler &handler) {
  testing::internal::CaptureStderr();
  handler.Report();
  return testing::internal::GetCapturedStderr();
}

TEST(ErrorHandler, ReportsInTheOrderFoundAndKeepsTheEntries) {
  ErrorHandler handler;
  EXPECT_EQ(reportOf(handler), "");

  Node node(SourceRange{internFileName("prog.cbl"), 12, 8, 13, 20});
  handler.PushError(ErrorCode::OnOffConditionSame, &node, nullptr);
  handler.PushWarn(ErrorCode::SubscriptBelowOne, &node, nullptr);
  handler.PushError(ErrorCode::IdentifierNotUnique, &node, "AMOUNT");
  handler.PushError(ErrorCode::OnOffConditionSame, &node, nullptr);
  const std::string onOff =
      "prog.cbl:12:8 - 13:20 error 3106 : The ON / OFF condition name cannot be same.\n";
  const std::string whole =
      onOff +
      "prog.cbl:12:8 - 13:20 warning 3528 : The lowest possible subscript value is 1. A value of 1 "
      "was assumed.\n"
      "prog.cbl:12:8 - 13:20 error 3311 : Identifier 'AMOUNT' is not unique\n" +
      onOff;
  EXPECT_EQ(reportOf(handler), whole);
  EXPECT_EQ(reportOf(handler), whole);
  EXPECT_EQ(handler.getErrorCount(), 3);
  EXPECT_EQ(handler.getWarningCount(), 1);
}

TEST(ErrorHandler, MessagesAreWholeWhateverTheArgument) {
  ErrorHandler handler;
  Node node;
  const int fixedPart = static_cast<int>(llvm::StringRef("Identifier '' is not unique").size());
  // Around the size of the buffer, and far beyond it.
  for (int length : {254, 255, 256, 257, 5000}) {
    std::string name(static_cast<std::size_t>(length - fixedPart), 'X');
    handler.PushError(ErrorCode::IdentifierNotUnique, &node, name.c_str());
    EXPECT_EQ(handler.getErrorList().back()->getMessage(),
              "Identifier '" + name + "' is not unique");
  }
  // Some rules have no text to show.
  handler.PushError(ErrorCode::NumericLiteralTooManyDigits, &node, nullptr);
  EXPECT_EQ(handler.getErrorList().back()->getMessage(),
            "The literal exceeds the exponent limit - '(null)'");
}

TEST(ErrorEntry, EverySeverityHasItsWord) {
  Node node;
  testing::internal::CaptureStderr();
  ErrorEntry(ErrorEntry::Fatal, &node, 1, "a").errorReport();
  ErrorEntry(ErrorEntry::Info, &node, 2, "b").errorReport();
  EXPECT_EQ(testing::internal::GetCapturedStderr(),
            ":0:0 - 0:0 fatal 1 : a\n:0:0 - 0:0 info 2 : b\n");
  EXPECT_DEATH(ErrorEntry(static_cast<ErrorEntry::ErrorSeverity>(4), &node, 3, "c").errorReport(),
               "invalid Severity used");
}

} // namespace
