//===- BmsMap.cpp - the symbolic map of a mapset --------------------------===//

#include "Parse/BmsMap.h"
#include "Parse/BmsMacros.h"
#include "Parse/Keywords.h"
#include "llvm/ADT/STLExtras.h"
#include "llvm/ADT/StringExtras.h"
#include "llvm/ADT/StringSet.h"
#include <memory>
#include <optional>

namespace tarka {

namespace {

enum class MapMode : uint8_t { In, Out, InOut };

/// The extended attributes in the order in which their fields stand, with the suffixes of these.
struct ExtendedAttribute {
  llvm::StringLiteral name;
  char suffix;
};
constexpr ExtendedAttribute extendedAttributes[] = {
    {"COLOR", 'C'},   {"PS", 'P'},   {"HILIGHT", 'H'}, {"VALIDN", 'V'},
    {"OUTLINE", 'U'}, {"SOSI", 'M'}, {"TRANSP", 'T'},
};
/// What EXTATT=YES stands for.
constexpr unsigned standardAttributes = 0b1111;

/// What an operand of DFHMSD says about all maps unless DFHMDI says something else.
struct MapDefaults {
  MapMode mode = MapMode::Out;
  unsigned fieldAttributes = 0; ///< DSATTS: bits in the order of extendedAttributes
  unsigned mapAttributes = 0;   ///< MAPATTS
  bool hasPrefix = false;       ///< TIOAPFX=YES
  bool isBlock = false;         ///< DATA=BLOCK
};

struct BmsField {
  std::string name;
  SourceRange place;
  unsigned length = 0;
  unsigned occurs = 0;
  unsigned offset = 0; ///< of the attribute byte from the beginning of the map
  std::string inPicture, outPicture;
  std::string group;
};

struct BmsMapDefinition {
  std::string name;
  SourceRange place;
  MapDefaults options;
  unsigned width = 80;
  std::vector<BmsField> fields; ///< those with a name
};

struct Mapset {
  std::string name;
  SourceRange place;
  MapDefaults options;
  bool isSeparate = false; ///< STORAGE=AUTO: every map has storage of its own
  std::string base;        ///< BASE: the item that all maps redefine
};

//===----------------------------------------------------------------------===//
// The text of the records
//===----------------------------------------------------------------------===//

/// Writes the records of the maps of one mapset.
class MapWriter {
public:
  MapWriter(const Mapset &mapset, SymbolicMap &out) : mapset(mapset), out(out) {}

  void write(const BmsMapDefinition &definition) {
    map = &definition;
    // An area without an item would be no record.
    if (map->fields.empty() && !map->options.hasPrefix)
      return;
    MapMode mode = map->options.mode;
    std::string overlaid = mapset.base.empty() ? firstRecord : mapset.base;
    if (mapset.isSeparate)
      overlaid.clear();
    if (mode != MapMode::Out)
      writeRecord('I', overlaid);
    bool isNamed = map->name != "FILLER";
    if (mode == MapMode::InOut)
      overlaid = isNamed ? map->name + "I" : "";
    if (mode != MapMode::In)
      writeRecord('O', overlaid);
    if (firstRecord.empty() && isNamed)
      firstRecord = map->name + (mode == MapMode::Out ? "O" : "I");
  }

private:
  void writeRecord(char suffix, llvm::StringRef redefined) {
    entry(map->place, 1, map->name, suffix,
          redefined.empty() ? "" : (" REDEFINES " + redefined).str());
    if (map->options.hasPrefix)
      filler(map->place, 2, 12);
    llvm::StringRef group;
    unsigned end = 0;
    for (const BmsField &field : map->fields) {
      bool goesOn = !field.group.empty() && field.group == group;
      group = field.group;
      if (map->options.isBlock) {
        // The record is an image of the screen.
        if (field.offset > end)
          filler(field.place, 2 + goesOn, field.offset - end);
        end = field.offset + (goesOn ? 0 : 1) + field.length;
      }
      unsigned level = 2;
      if (!group.empty()) {
        level = 3;
        if (!goesOn)
          entry(field.place, 2, group, 0, "");
      } else if (field.occurs > 0) {
        level = 3;
        writeTable(field, suffix);
      }
      if (suffix == 'I')
        writeInput(field, level, goesOn);
      else
        writeOutput(field, level, goesOn);
    }
  }

  /// The group of the occurrences of \p field. The two records of a map share no names.
  void writeTable(const BmsField &field, char suffix) {
    std::string clause = " OCCURS " + std::to_string(field.occurs) + " TIMES";
    if (suffix == 'I')
      entry(field.place, 2, field.name, 'D', clause);
    else if (map->options.mode == MapMode::Out)
      entry(field.place, 2, field.name, 'G', clause);
    else
      entry(field.place, 2, "DFHMS" + std::to_string(++tables), 0, clause);
  }

  void writeInput(const BmsField &field, unsigned level, bool goesOn) {
    if (!goesOn) {
      if (!map->options.isBlock)
        entry(field.place, level, field.name, 'L', " COMP PIC S9(4)");
      entry(field.place, level, field.name, 'F', " PICTURE X");
      if (isAttributeInInput(field) && field.name != "FILLER") {
        entry(field.place, level, "FILLER", 0, " REDEFINES " + field.name + "F");
        entry(field.place, level + 1, field.name, 'A', " PICTURE X");
      }
      if (unsigned count = llvm::popcount(map->options.fieldAttributes))
        filler(field.place, level, count);
    }
    data(field, level, 'I', field.inPicture);
  }

  void writeOutput(const BmsField &field, unsigned level, bool goesOn) {
    if (!goesOn) {
      unsigned lengthField = map->options.isBlock ? 0 : 2;
      if (isAttributeInInput(field)) {
        filler(field.place, level, lengthField + 1);
      } else {
        if (lengthField > 0)
          filler(field.place, level, lengthField);
        entry(field.place, level, field.name, 'A', " PICTURE X");
      }
      for (const auto &[index, attribute] : llvm::enumerate(extendedAttributes))
        if (map->options.fieldAttributes >> index & 1)
          entry(field.place, level, field.name, attribute.suffix, " PICTURE X");
    }
    data(field, level, 'O', field.outPicture);
  }

  /// Whether the attribute byte of \p field is described where the flag is: in maps for both ways,
  /// but not in tables.
  bool isAttributeInInput(const BmsField &field) const {
    return map->options.mode == MapMode::InOut && field.occurs == 0;
  }

  void data(const BmsField &field, unsigned level, char suffix, llvm::StringRef picture) {
    std::string described =
        picture.empty() ? "X(" + std::to_string(field.length) + ")" : picture.str();
    entry(field.place, level, field.name, suffix, " PIC " + described);
  }
  void filler(const SourceRange &place, unsigned level, unsigned size) {
    entry(place, level, "FILLER", 0, " PICTURE X(" + std::to_string(size) + ")");
  }

  /// One entry: \p name with \p suffix, if there is one, and its clauses.
  void entry(const SourceRange &place, unsigned level, llvm::StringRef name, char suffix,
             llvm::StringRef clauses) {
    out.text += std::to_string(level) + " " + name.str();
    if (suffix && name != "FILLER")
      out.text += suffix;
    out.text += clauses;
    out.text += ".\n";
    out.places.push_back(place);
  }

  const Mapset &mapset;
  SymbolicMap &out;
  const BmsMapDefinition *map = nullptr;
  std::string firstRecord;
  unsigned tables = 0;
};

//===----------------------------------------------------------------------===//
// The meaning of the macros
//===----------------------------------------------------------------------===//

/// How many characters a picture describes.
unsigned sizeOfPicture(llvm::StringRef picture) {
  std::string upper = picture.upper();
  llvm::StringRef rest = upper;
  unsigned size = 0;
  while (!rest.empty()) {
    bool isPair = rest.starts_with("CR") || rest.starts_with("DB");
    char symbol = rest.front();
    rest = rest.drop_front(isPair ? 2 : 1);
    unsigned count = isPair ? 2 : 1;
    if (rest.consume_front("(")) {
      unsigned repeated = 0;
      if (rest.consumeInteger(10, repeated) || !rest.consume_front(")"))
        return 0;
      count *= repeated;
    }
    if (!llvm::StringRef("SVP").contains(symbol))
      size += count;
  }
  return size;
}

/// Follows the macros of a file and makes maps of them.
class MapReader {
public:
  MapReader(const SourceFile &file, llvm::StringRef onlyMapset, WordTable &words,
            SourceDiagnostics &diagnostics)
      : reader(file, onlyMapset, diagnostics), words(words), diagnostics(diagnostics) {}

  SymbolicMap read() {
    BmsMacro macro;
    while (reader.next(macro)) {
      switch (macro.kind) {
      case BmsMacroKind::Mapset:
        readMapset(macro);
        break;
      case BmsMacroKind::Map:
        readMap(macro);
        break;
      case BmsMacroKind::Field:
        readField(macro);
        break;
      }
    }
    if (mapset)
      report(DiagnosticId::BmsNoFinal, mapset->place, mapset->name);
    endMapset();
    return std::move(out);
  }

private:
  void readMapset(const BmsMacro &macro) {
    if (macro.has("TYPE", "FINAL")) {
      if (!mapset)
        reportOutOfPlace(macro, "DFHMSD TYPE=MAP");
      endMapset();
      return;
    }
    if (mapset)
      report(DiagnosticId::BmsNoFinal, mapset->place, mapset->name);
    endMapset();
    wasOutOfPlace = false;
    out.isThere = true;
    mapset = std::make_unique<Mapset>();
    mapset->place = macro.place;
    mapset->name = checkName(macro, "a mapset", maxMapName, "");
    if (!macro.find("TYPE"))
      report(DiagnosticId::BmsOperandMissing, macro.place, "DFHMSD", "TYPE=MAP or DSECT");
    if (const BmsOperand *language = macro.find("LANG");
        language && !language->isWrong &&
        !llvm::StringRef(language->value).starts_with_insensitive("COBOL"))
      report(DiagnosticId::BmsLanguage, language->place, language->value);
    mapset->isSeparate = macro.has("STORAGE", "AUTO");
    if (const BmsOperand *base = macro.find("BASE")) {
      if (mapset->isSeparate)
        report(DiagnosticId::BmsConflict, base->place, "BASE", "STORAGE=AUTO");
      else
        mapset->base = checkWord(llvm::StringRef(base->value).upper(), base->place, maxWord, "");
    }
    mapset->options = readOptions(macro, MapDefaults());
    writer.emplace(*mapset, out);
  }

  void endMapset() {
    endMap();
    writer.reset();
    mapset.reset();
  }

  void readMap(const BmsMacro &macro) {
    endMap();
    if (!mapset) {
      reportOutOfPlace(macro, "DFHMSD");
      return;
    }
    map = std::make_unique<BmsMapDefinition>();
    map->place = macro.place;
    map->name = checkName(macro, "a map", maxMapName, "IO");
    map->options = readOptions(macro, mapset->options);
    if (const BmsOperand *size = macro.find("SIZE")) {
      llvm::SmallVector<std::string, 4> items = size->getItems();
      unsigned columns = 0;
      bool isPair = items.size() == 2 && !llvm::StringRef(items[1]).getAsInteger(10, columns);
      if (size->isWrong)
        columns = map->width;
      else if (!isPair || columns == 0)
        report(DiagnosticId::BmsOperandValue, size->place, "SIZE", size->value, "(lines,columns)");
      if (columns > 0)
        map->width = columns;
    }
    if (map->options.isBlock && map->options.fieldAttributes)
      report(DiagnosticId::BmsConflict, macro.place, "DSATTS", "DATA=BLOCK");
    names.clear();
    groupName.clear();
    blockEnd = 0;
  }

  void endMap() {
    if (map && writer)
      writer->write(*map);
    map.reset();
  }

  /// The operands that DFHMSD and DFHMDI have both, where those of DFHMDI win.
  MapDefaults readOptions(const BmsMacro &macro, MapDefaults options) {
    if (macro.find("MODE"))
      options.mode = macro.has("MODE", "IN")    ? MapMode::In
                     : macro.has("MODE", "OUT") ? MapMode::Out
                                                : MapMode::InOut;
    if (macro.find("TIOAPFX"))
      options.hasPrefix = macro.has("TIOAPFX", "YES");
    if (macro.find("DATA"))
      options.isBlock = macro.has("DATA", "BLOCK");
    if (const BmsOperand *extended = macro.find("EXTATT")) {
      options.mapAttributes = macro.has("EXTATT", "NO") ? 0 : standardAttributes;
      options.fieldAttributes = macro.has("EXTATT", "YES") ? standardAttributes : 0;
      for (llvm::StringRef other : {"DSATTS", "MAPATTS"})
        if (macro.find(other))
          report(DiagnosticId::BmsConflict, extended->place, "EXTATT", other);
    }
    if (const BmsOperand *types = macro.find("MAPATTS"))
      options.mapAttributes = attributesIn(*types);
    if (const BmsOperand *types = macro.find("DSATTS")) {
      options.fieldAttributes = attributesIn(*types);
      if (options.fieldAttributes & ~options.mapAttributes)
        report(DiagnosticId::BmsAttributesNotInMap, types->place);
    }
    return options;
  }

  static unsigned attributesIn(const BmsOperand &operand) {
    llvm::SmallVector<std::string, 4> items = operand.getItems();
    unsigned attributes = 0;
    for (const auto &[index, attribute] : llvm::enumerate(extendedAttributes))
      if (llvm::is_contained(items, attribute.name))
        attributes |= 1U << index;
    return attributes;
  }

  void readField(const BmsMacro &macro) {
    if (!map) {
      reportOutOfPlace(macro, mapset ? "DFHMDI" : "DFHMSD");
      return;
    }
    const BmsOperand *group = macro.find("GRPNAME");
    if (macro.label.empty()) {
      if (group)
        report(DiagnosticId::BmsNameMissing, macro.place, "a field of a group");
      return; // The program has no access to it.
    }
    BmsField field;
    field.place = macro.place;
    field.name = checkNew(macro.label, macro.place, maxFieldName, suffixesOf(macro));
    if (const BmsOperand *occurs = macro.find("OCCURS")) {
      field.occurs = std::max(occurs->getNumber(), 1U);
      if (occurs->getNumber() == 0 && !occurs->isWrong)
        report(DiagnosticId::BmsOperandValue, occurs->place, "OCCURS", occurs->value,
               "a number from 1 on");
      if (group)
        report(DiagnosticId::BmsConflict, occurs->place, "OCCURS", "GRPNAME");
    }
    if (group) {
      field.occurs = 0;
      bool goesOn = !map->fields.empty() && groupName == group->value;
      groupName = group->value;
      field.group =
          goesOn ? map->fields.back().group
                 : checkNew(llvm::StringRef(group->value).upper(), group->place, maxWord, "");
    } else {
      groupName.clear();
    }
    field.inPicture = readPicture(macro, "PICIN");
    field.outPicture = readPicture(macro, "PICOUT");
    field.length = readLength(macro, field);
    if (map->options.isBlock)
      placeInBlock(macro, field);
    map->fields.push_back(std::move(field));
  }

  /// The picture that \p keyword gives; empty when it gives none.
  std::string readPicture(const BmsMacro &macro, llvm::StringRef keyword) {
    const BmsOperand *operand = macro.find(keyword);
    if (!operand)
      return {};
    std::string picture = operand->getText();
    bool isWritable = llvm::all_of(picture, [](char c) {
      return llvm::isAlnum(c) || llvm::StringRef("().,+-*/$").contains(c);
    });
    if (!isWritable || sizeOfPicture(picture) == 0 || picture.back() == '.' ||
        picture.back() == ',') {
      report(DiagnosticId::BmsOperandValue, operand->place, keyword,
             showText(llvm::StringRef(operand->value).take_front(60)), "a picture in quotes");
      return {};
    }
    if (const BmsOperand *length = macro.find("LENGTH");
        length && !length->isWrong && length->getNumber() != sizeOfPicture(picture))
      report(DiagnosticId::BmsPictureLength, operand->place, keyword, sizeOfPicture(picture),
             length->value);
    return picture;
  }

  /// The length of a field with a name: LENGTH, or else that of a picture or of the initial text.
  unsigned readLength(const BmsMacro &macro, const BmsField &field) {
    if (const BmsOperand *length = macro.find("LENGTH")) {
      if (length->getNumber() == 0 && !length->isWrong)
        report(DiagnosticId::BmsOperandValue, length->place, "LENGTH", length->value,
               "a number from 1 on where the field has a name");
      return std::max(length->getNumber(), 1U);
    }
    for (llvm::StringRef picture : {field.outPicture, field.inPicture})
      if (!picture.empty())
        return sizeOfPicture(picture);
    if (const BmsOperand *initial = macro.find("INITIAL"))
      if (size_t size = initial->getText().size())
        return static_cast<unsigned>(size);
    if (const BmsOperand *initial = macro.find("XINIT"))
      if (size_t digits = initial->getText().size(); digits > 1)
        return static_cast<unsigned>(digits / 2);
    report(DiagnosticId::BmsOperandMissing, macro.place, "DFHMDF", "LENGTH");
    return 1;
  }

  /// Finds out where on the screen \p field begins. Fields must come in the order of the screen.
  void placeInBlock(const BmsMacro &macro, BmsField &field) {
    const BmsOperand *position = macro.find("POS");
    llvm::SmallVector<std::string, 4> items;
    if (position)
      items = position->getItems();
    unsigned line = 0, column = 0;
    bool isPair = items.size() == 2 && !llvm::StringRef(items[0]).getAsInteger(10, line) &&
                  !llvm::StringRef(items[1]).getAsInteger(10, column) && line > 0 && column > 0;
    if (isPair) {
      field.offset = (line - 1) * map->width + column - 1;
    } else if (items.size() == 1 && !llvm::StringRef(items[0]).getAsInteger(10, column)) {
      field.offset = column;
    } else {
      if (!position || !position->isWrong)
        report(DiagnosticId::BmsOperandMissing, macro.place, "DFHMDF", "POS=(line,column)");
      field.offset = blockEnd;
    }
    bool goesOn =
        !field.group.empty() && !map->fields.empty() && map->fields.back().group == field.group;
    // The later fields of a group have no attribute byte: their position is that of the last
    // character before them.
    field.offset += goesOn;
    if (field.offset < blockEnd) {
      report(DiagnosticId::BmsFieldOrder, macro.place, field.name);
      field.offset = blockEnd;
    }
    blockEnd = field.offset + (goesOn ? 0 : 1) + field.length;
  }

  //===--------------------------------------------------------------------===//
  // Names
  //===--------------------------------------------------------------------===//

  static constexpr size_t maxMapName = 7;
  static constexpr size_t maxWord = 30;
  static constexpr size_t maxFieldName = maxWord - 1; ///< leaves one character for the suffix

  /// The suffixes of the names that are made of the label of the field \p macro.
  std::string suffixesOf(const BmsMacro &macro) const {
    MapMode mode = map->options.mode;
    std::string suffixes = mode == MapMode::In ? "LFI" : mode == MapMode::Out ? "AO" : "LFAIO";
    for (const auto &[index, attribute] : llvm::enumerate(extendedAttributes))
      if (map->options.fieldAttributes >> index & 1)
        suffixes += attribute.suffix;
    if (macro.find("OCCURS"))
      suffixes += mode == MapMode::Out ? 'G' : 'D';
    return suffixes;
  }

  /// The label of \p macro, which is \p what, as a name; FILLER, after a message, for what is none.
  std::string checkName(const BmsMacro &macro, llvm::StringRef what, size_t limit,
                        llvm::StringRef suffixes) {
    if (!macro.label.empty())
      return checkWord(macro.label, macro.place, limit, suffixes);
    report(DiagnosticId::BmsNameMissing, macro.place, what);
    return "FILLER";
  }

  /// The same for a name that stands in a map once.
  std::string checkNew(llvm::StringRef name, const SourceRange &place, size_t limit,
                       llvm::StringRef suffixes) {
    std::string checked = checkWord(name, place, limit, suffixes);
    if (checked == "FILLER" || names.insert(checked).second)
      return checked;
    report(DiagnosticId::BmsNameTwice, place, checked);
    return "FILLER";
  }

  std::string checkWord(llvm::StringRef name, const SourceRange &place, size_t limit,
                        llvm::StringRef suffixes) {
    bool isWord =
        !name.empty() && llvm::isAlpha(name.front()) && name.size() <= limit &&
        llvm::all_of(name, [](char c) { return llvm::isAlnum(c) || c == '-' || c == '_'; });
    if (!isWord) {
      report(DiagnosticId::BmsNameInvalid, place, showText(name.take_front(60)), limit);
      return "FILLER";
    }
    llvm::SmallVector<std::string, 8> made;
    if (suffixes.empty())
      made.push_back(name.str());
    for (char suffix : suffixes)
      made.push_back(name.str() + suffix);
    const auto *reserved = llvm::find_if(
        made, [&](const std::string &word) { return isReserved(words.lookup(word).keyword); });
    if (reserved == made.end())
      return name.str();
    report(DiagnosticId::BmsNameReserved, place, *reserved);
    return "FILLER";
  }

  //===--------------------------------------------------------------------===//
  // Messages
  //===--------------------------------------------------------------------===//

  template <typename... Arguments>
  void report(DiagnosticId id, const SourceRange &place, Arguments &&...arguments) {
    diagnostics.report(id, place, std::forward<Arguments>(arguments)...);
  }
  /// One message for all macros that have nothing to belong to.
  void reportOutOfPlace(const BmsMacro &macro, llvm::StringRef missing) {
    if (!wasOutOfPlace)
      report(DiagnosticId::BmsOutOfPlace, macro.place, nameOf(macro.kind), missing);
    wasOutOfPlace = true;
  }

  BmsReader reader;
  WordTable &words;
  SourceDiagnostics &diagnostics;
  SymbolicMap out;

  std::unique_ptr<Mapset> mapset; ///< null outside of a mapset
  std::optional<MapWriter> writer;
  std::unique_ptr<BmsMapDefinition> map; ///< the one being read; null between maps
  llvm::StringSet<> names;               ///< of the fields and groups of the map
  std::string groupName;                 ///< of the field before
  unsigned blockEnd = 0;
  bool wasOutOfPlace = false;
};

} // namespace

SymbolicMap makeSymbolicMap(const SourceFile &file, llvm::StringRef mapset, WordTable &words,
                            SourceDiagnostics &diagnostics) {
  std::string name = mapset.upper();
  bool isDefined = llvm::is_contained(mapsetsIn(file.getText()), name);
  return MapReader(file, isDefined ? name : "", words, diagnostics).read();
}

} // namespace tarka
