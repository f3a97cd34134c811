//===- Encoding.cpp - source files in other encodings than UTF-8 ----------===//

#include "Parse/Encoding.h"
#include "llvm/ADT/STLExtras.h"
#include "llvm/ADT/Twine.h"
#include "llvm/Support/ConvertUTF.h"
#include <cerrno>
#include <iconv.h>

namespace tarka {

namespace {

constexpr char shiftOut = '\x0E';
constexpr char shiftIn = '\x0F';

/// The control characters that end lines of EBCDIC text.
constexpr char ebcdicNewLine = '\x15';
constexpr char ebcdicLineFeed = '\x25';

/// A card image.
constexpr size_t recordLength = 80;

/// iconv to UTF-8. IBM's way to write names of code pages, IBM-037, is understood for all of them.
class Converter {
public:
  explicit Converter(llvm::StringRef encoding) {
    handle = iconv_open("UTF-8", encoding.str().c_str());
    if (!isOpen() && encoding.consume_front_insensitive("IBM-"))
      handle = iconv_open("UTF-8", ("IBM" + encoding.str()).c_str());
  }
  ~Converter() {
    if (isOpen())
      iconv_close(handle);
  }
  Converter(const Converter &) = delete;
  Converter &operator=(const Converter &) = delete;

  bool isOpen() const { return handle != reinterpret_cast<iconv_t>(-1); }

  /// Appends \p bytes to \p result, with a space for a byte that is not a character.
  void convert(llvm::StringRef bytes, DecodedText &result) {
    iconv(handle, nullptr, nullptr, nullptr, nullptr);
    char *from = const_cast<char *>(bytes.data());
    size_t left = bytes.size();
    while (left > 0) {
      char buffer[4096];
      char *to = buffer;
      size_t room = sizeof buffer;
      size_t converted = iconv(handle, &from, &left, &to, &room);
      int reason = errno;
      result.text.append(buffer, to - buffer);
      if (converted != static_cast<size_t>(-1) || reason == E2BIG)
        continue;
      if (result.firstUndecodable == llvm::StringRef::npos) {
        result.firstUndecodable = result.text.size();
        result.undecodableByte = *from;
      }
      result.text += ' ';
      ++from;
      --left;
    }
  }

  std::string convert(llvm::StringRef bytes) {
    DecodedText result;
    convert(bytes, result);
    return result.text;
  }

private:
  iconv_t handle;
};

/// Decodes text of an EBCDIC code page line by line.
class EbcdicDecoder {
public:
  EbcdicDecoder(Converter &converter, DecodedText &result)
      : converter(converter), result(result),
        isSingleByte(converter.convert(llvm::StringRef(&shiftOut, 1)).size() == 1) {}

  void decode(llvm::StringRef bytes) {
    constexpr char ends[] = {ebcdicNewLine, ebcdicLineFeed, '\r'};
    llvm::StringRef lineEnds(ends, sizeof ends);
    bool isRecords = bytes.find_first_of(lineEnds) == llvm::StringRef::npos;
    while (!bytes.empty()) {
      size_t end = isRecords ? recordLength : bytes.find_first_of(lineEnds);
      decodeLine(bytes.take_front(end));
      bytes = bytes.substr(std::min(end, bytes.size()));
      if (!isRecords && bytes.consume_front("\r"))
        bytes = bytes.drop_front(!bytes.empty() && lineEnds.drop_back().contains(bytes.front()));
      else if (!isRecords)
        bytes = bytes.drop_front(!bytes.empty());
      result.text += '\n';
    }
  }

private:
  void decodeLine(llvm::StringRef line) {
    while (!line.empty()) {
      size_t begin = line.find(shiftOut);
      converter.convert(line.take_front(begin), result);
      if (begin == llvm::StringRef::npos)
        return;
      size_t length = line.substr(begin + 1).find(shiftIn);
      llvm::StringRef characters = line.substr(begin + 1, length);
      result.text += shiftOut;
      decodeDoubleBytes(characters);
      if (length == llvm::StringRef::npos)
        return;
      result.text += shiftIn;
      line = line.substr(begin + 1 + length + 1);
    }
  }

  /// A code page of single bytes does not contain the characters between shift codes. They are
  /// decoded to the characters of a private-use plane with their numbers, so that they remain
  /// distinct.
  void decodeDoubleBytes(llvm::StringRef bytes) {
    if (!isSingleByte) {
      converter.convert((llvm::Twine(shiftOut) + bytes + llvm::Twine(shiftIn)).str(), result);
      return;
    }
    constexpr llvm::UTF32 privatePlane = 0xF0000;
    for (; bytes.size() >= 2; bytes = bytes.drop_front(2)) {
      llvm::UTF32 number = privatePlane + (static_cast<unsigned char>(bytes[0]) << 8 |
                                           static_cast<unsigned char>(bytes[1]));
      char buffer[UNI_MAX_UTF8_BYTES_PER_CODE_POINT];
      char *end = buffer;
      llvm::ConvertCodePointToUTF8(number, end);
      result.text.append(buffer, end - buffer);
    }
    converter.convert(bytes, result);
  }

  Converter &converter;
  DecodedText &result;
  bool isSingleByte;
};

} // namespace

bool isKnownEncoding(const std::string &encoding) {
  return Converter(encoding).isOpen();
}

/// In EBCDIC the space is X'40', and X'20' is a control character that no text has.
bool looksLikeEbcdic(llvm::StringRef text) {
  llvm::StringRef sample = text.take_front(4096);
  return sample.size() >= recordLength && !sample.contains(' ') &&
         sample.count('\x40') * 5 > sample.size();
}

DecodedText decodeText(llvm::StringRef bytes, const std::string &encoding) {
  DecodedText result;
  // Marks of UTF-8, and of both orders of UTF-16.
  bool isUtf16 = bytes.starts_with("\xFE\xFF") || bytes.starts_with("\xFF\xFE");
  Converter converter(bytes.starts_with("\xEF\xBB\xBF") ? "UTF-8"
                      : isUtf16                         ? "UTF-16"
                                                        : llvm::StringRef(encoding));
  if (converter.convert("\xC1\x40") == "A ")
    EbcdicDecoder(converter, result).decode(bytes);
  else
    converter.convert(bytes, result);
  return result;
}

} // namespace tarka
