//===- TextChunk.h - sixteen bytes of text at once --------------*- C++ -*-===//
//
// Lines and words are found with comparisons that are sixteen bytes wide. SIMDe
// translates them to whatever the machine has.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_LIB_PARSE_TEXTCHUNK_H
#define TARKA_LIB_PARSE_TEXTCHUNK_H

#include <bit>
#include <cstddef>
#include <simde/x86/sse2.h>

namespace tarka {

/// Sixteen bytes of text. A comparison gives a mask in which bit n is set where byte n is what was
/// asked for.
class TextChunk {
public:
  static constexpr std::ptrdiff_t size = 16;

  /// \p from must be the first of sixteen readable bytes.
  explicit TextChunk(const char *from)
      : bytes(simde_mm_loadu_si128(reinterpret_cast<const simde__m128i *>(from))) {}

  /// How many bytes, from the first one on, have their bits in \p mask.
  static std::ptrdiff_t countFirst(unsigned mask) { return std::countr_zero(~mask | 1U << size); }

  /// The bytes that are \p c.
  unsigned findEqual(char c) const { return maskOf(simde_mm_cmpeq_epi8(bytes, filled(c))); }
  /// Control bytes, which include the ends of lines, and bytes outside ASCII.
  unsigned findUnusual() const { return maskOf(simde_mm_cmplt_epi8(bytes, filled(' '))); }
  unsigned findDigits() const { return maskOf(isInRange(bytes, '9', '9' - '0' + 1)); }
  /// The bytes that words are made of: letters, digits, hyphen and underscore.
  unsigned findWordCharacters() const {
    const simde__m128i letters =
        isInRange(simde_mm_or_si128(bytes, filled('a' ^ 'A')), 'z', 'z' - 'a' + 1);
    const simde__m128i digits = isInRange(bytes, '9', '9' - '0' + 1);
    const simde__m128i joints = simde_mm_or_si128(simde_mm_cmpeq_epi8(bytes, filled('-')),
                                                  simde_mm_cmpeq_epi8(bytes, filled('_')));
    return maskOf(simde_mm_or_si128(simde_mm_or_si128(letters, digits), joints));
  }

  /// Stores the first \p length bytes, and zero after them, in the sixteen bytes at \p to.
  void storeHead(std::ptrdiff_t length, void *to) const {
    static constexpr char kept[2 * size + 1] =
        "\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF";
    const simde__m128i head = simde_mm_and_si128(bytes, TextChunk(kept + size - length).bytes);
    simde_mm_storeu_si128(static_cast<simde__m128i *>(to), head);
  }

private:
  static simde__m128i filled(int byte) { return simde_mm_set1_epi8(static_cast<char>(byte)); }
  static unsigned maskOf(simde__m128i comparison) {
    return static_cast<unsigned>(simde_mm_movemask_epi8(comparison));
  }
  /// Compares with the \p count characters up to \p last. They are shifted to the greatest numbers
  /// that a signed byte can have, so that one comparison is enough.
  static simde__m128i isInRange(simde__m128i bytes, char last, int count) {
    return simde_mm_cmpgt_epi8(simde_mm_add_epi8(bytes, filled(127 - last)), filled(127 - count));
  }

  simde__m128i bytes;
};

} // namespace tarka

#endif // TARKA_LIB_PARSE_TEXTCHUNK_H
