//===- CharacterTable.h - what each byte means in COBOL text ----*- C++ -*-===//
//
// One table lookup per byte tells the scanner what a character begins and whether
// it can continue a word.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_LIB_PARSE_CHARACTERTABLE_H
#define TARKA_LIB_PARSE_CHARACTERTABLE_H

#include <array>
#include <cstdint>

namespace tarka {

/// What a token that begins with a character is.
enum class CharacterClass : uint8_t {
  Unknown, ///< no character of the COBOL character set, but printable
  Blank,
  Letter,
  Digit,
  Quote,
  Separator, ///< comma and semicolon
  Mark,      ///< punctuation, operators and relations
  NotText    ///< control bytes and bytes of characters outside ASCII
};

struct CharacterTable {
  std::array<CharacterClass, 256> classes{};
  std::array<bool, 256> wordCharacters{};

  constexpr CharacterTable() {
    for (unsigned byte = 0; byte < 256; ++byte)
      classes[byte] =
          byte < 0x20 || byte >= 0x7F ? CharacterClass::NotText : CharacterClass::Unknown;
    for (unsigned char byte : {' ', '\t', '\f', '\v', '\x1A'})
      classes[byte] = CharacterClass::Blank;
    for (unsigned letter = 'A'; letter <= 'Z'; ++letter)
      classes[letter] = classes[letter + ('a' - 'A')] = CharacterClass::Letter;
    classes['_'] = CharacterClass::Letter;
    for (unsigned digit = '0'; digit <= '9'; ++digit)
      classes[digit] = CharacterClass::Digit;
    classes['"'] = classes['\''] = CharacterClass::Quote;
    classes[','] = classes[';'] = CharacterClass::Separator;
    for (unsigned char byte : {'.', '(', ')', ':', '+', '-', '*', '/', '=', '<', '>', '&'})
      classes[byte] = CharacterClass::Mark;
    for (unsigned byte = 0; byte < 256; ++byte)
      wordCharacters[byte] = classes[byte] == CharacterClass::Letter ||
                             classes[byte] == CharacterClass::Digit || byte == '-';
  }
};

inline constexpr CharacterTable characterTable;

inline CharacterClass classOf(char c) {
  return characterTable.classes[static_cast<unsigned char>(c)];
}
inline bool isWordCharacter(char c) {
  return characterTable.wordCharacters[static_cast<unsigned char>(c)];
}
inline bool isBlank(char c) {
  return classOf(c) == CharacterClass::Blank;
}
inline bool isDigitCharacter(char c) {
  return classOf(c) == CharacterClass::Digit;
}

} // namespace tarka

#endif // TARKA_LIB_PARSE_CHARACTERTABLE_H
