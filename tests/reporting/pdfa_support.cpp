#include "pdfa_support.h"

#include <QByteArray>
#include <QString>
#include <cmath>
#include <fstream>
#include <iterator>
#include <nlohmann/json.hpp>
#include <regex>
#include <set>
#include <stdexcept>

#include "report_support.h"

namespace cu::test {
namespace {

using Json = nlohmann::json;

std::string bytesOf(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

unsigned number(const QByteArray& data, qsizetype at, int size) {
  unsigned value = 0;
  for (qsizetype i = 0; i < size; ++i) value = value << 8U | static_cast<unsigned char>(data.at(at + i));
  return value;
}

// A file as parsed by qpdf.
class Examination {
 public:
  explicit Examination(const std::string& path) : bytes_(bytesOf(path)) {
    const CommandResult parsed =
        runCommand("(qpdf --json=2 --json-key=qpdf --json-stream-data=inline --decode-level=generalized '" +
                   path + "' 2>/dev/null)");
    constexpr int kWarnings = 3;
    require(parsed.status != kWarnings, "a structure without a warning");
    if (parsed.status != 0 && parsed.status != kWarnings) throw std::runtime_error("qpdf: " + parsed.output);
    objects_ = Json::parse(parsed.output).at("qpdf").at(1);
    trailer_ = objects_.at("trailer").at("value");
  }

  std::vector<std::string> run() {
    frame();
    catalog();
    information();
    for (const auto& [name, object] : objects_.items()) {
      if (object.contains("stream")) {
        stream(object["stream"]["dict"], name);
        walk(object["stream"]["dict"], name);
      } else {
        walk(object["value"], name);
        if (is(object["value"], "/Type", "/Font")) font(object["value"], name);
      }
    }
    require(fonts_ > 0, "no font");
    return missing_;
  }

 private:
  void require(bool kept, const std::string& what) {
    if (!kept) missing_.push_back(what);
  }
  static bool is(const Json& dictionary, const char* key, const char* value) {
    return dictionary.is_object() && dictionary.contains(key) && dictionary[key] == value;
  }
  static Json at(const Json& dictionary, const char* key) {
    return dictionary.is_object() && dictionary.contains(key) ? dictionary[key] : Json();
  }
  // A value, or the object that it refers to; of a stream its dictionary.
  Json resolved(const Json& value) const {
    if (!value.is_string() || !objects_.contains("obj:" + value.get<std::string>())) return value;
    const Json& object = objects_["obj:" + value.get<std::string>()];
    return object.contains("stream") ? object["stream"]["dict"] : object["value"];
  }
  QByteArray data(const Json& reference) const {
    if (!reference.is_string()) return {};
    const std::string key = "obj:" + reference.get<std::string>();
    if (!objects_.contains(key) || !objects_[key].contains("stream")) return {};
    return QByteArray::fromBase64(
        QByteArray::fromStdString(objects_[key]["stream"]["data"].get<std::string>()));
  }

  void frame() {
    require(std::regex_search(bytes_.substr(0, 32), std::regex("^%PDF-1\\.[1-4]\n%[\x80-\xff]{4,}\n")),
            "header and comment of binary bytes");
    require(bytes_.ends_with("%%EOF\n"), "end of file");
    require(!trailer_.contains("/Encrypt"), "not encrypted");
    const Json id = at(trailer_, "/ID");
    require(id.is_array() && id.size() == 2 && id[0].get<std::string>().size() > 16, "identifier");
    for (const char* const later : {"/ObjStm", "/XRef", "/LZWDecode", "/JavaScript", "/EmbeddedFile"}) {
      require(bytes_.find(later) == std::string::npos, std::string("nothing of ") + later);
    }
    require(runOk("xref\n0 " + std::to_string(objects_.size())), "table with all objects");
  }
  bool runOk(const std::string& piece) const { return bytes_.find(piece) != std::string::npos; }

  void catalog() {
    const Json catalog = resolved(trailer_.at("/Root"));
    require(at(catalog, "/Lang") == "u:it-IT", "language");
    for (const char* const active : {"/AA", "/OpenAction", "/OCProperties", "/Names", "/AcroForm"}) {
      require(!catalog.contains(active), std::string("no ") + active);
    }
    const Json intents = resolved(at(catalog, "/OutputIntents"));
    require(intents.is_array() && intents.size() == 1, "one output intent");
    if (intents.is_array() && !intents.empty()) intent(resolved(intents[0]));
    metadata_ = at(catalog, "/Metadata");
    require(is(resolved(metadata_), "/Type", "/Metadata") && is(resolved(metadata_), "/Subtype", "/XML"),
            "metadata");
    require(!resolved(metadata_).contains("/Filter"), "metadata without a filter");
  }

  void intent(const Json& intent) {
    require(is(intent, "/S", "/GTS_PDFA1") && intent.contains("/OutputConditionIdentifier"), "output intent");
    const QByteArray profile = data(at(intent, "/DestOutputProfile"));
    constexpr qsizetype kHeader = 128;
    require(profile.size() > kHeader && number(profile, 0, 4) == profile.size(), "whole profile");
    if (profile.size() <= kHeader) return;
    require(profile.mid(36, 4) == "acsp" && profile.mid(12, 4) == "mntr" && number(profile, 8, 1) < 3,
            "profile of a monitor, version 2");
    require(profile.mid(16, 4) == "RGB " && at(resolved(at(intent, "/DestOutputProfile")), "/N") == 3,
            "three colours in the profile");
  }

  // The text of an element of the metadata, without elements in it.
  std::string element(const std::string& name) const {
    const QString packet = QString::fromUtf8(data(metadata_));
    std::smatch found;
    const std::string text = packet.toStdString();
    if (!std::regex_search(text, found, std::regex("<" + name + ">([^]*?)</" + name + ">"))) return {};
    std::string value = std::regex_replace(found[1].str(), std::regex("<[^>]*>"), "");
    for (const auto& [entity, sign] :
         {std::pair("&lt;", "<"), {"&gt;", ">"}, {"&quot;", "\""}, {"&amp;", "&"}}) {
      value = std::regex_replace(value, std::regex(entity), sign);
    }
    return value;
  }

  void information() {
    require(element("pdfaid:part") == "1" && element("pdfaid:conformance") == "B",
            "claim of the conformance");
    require(element("dc:language") == "it-IT", "language of the metadata");
    const Json info = resolved(trailer_.at("/Info"));
    const auto text = [&info](const char* key) {
      const Json value = at(info, key);
      return value.is_string() ? value.get<std::string>().substr(2) : std::string();
    };
    for (const auto& [key, name] : {std::pair("/Title", "dc:title"),
                                    {"/Author", "dc:creator"},
                                    {"/Creator", "xmp:CreatorTool"},
                                    {"/Producer", "pdf:Producer"}}) {
      require(text(key) == element(name), std::string(key) + " as in the metadata");
    }
    require(!text("/Title").empty(), "title");
    const std::string date = std::regex_replace(element("xmp:CreateDate"), std::regex("[-:T]"), "");
    require(text("/CreationDate") == (date.empty() ? "" : "D:" + date), "date as in the metadata");
  }

  void stream(const Json& dictionary, const std::string& name) {
    for (const char* const external : {"/F", "/FFilter", "/FDecodeParms"}) {
      require(!dictionary.contains(external), name + " in the file itself");
    }
  }

  void walk(const Json& value, const std::string& where) {
    constexpr std::size_t kMostOfList = 8191;
    require(!value.is_array() || value.size() <= kMostOfList, where + " with a list that is not too long");
    if (value.is_array()) {
      for (const Json& each : value) walk(each, where);
    }
    if (!value.is_object()) return;
    for (const auto& [key, each] : value.items()) {
      if (key == "/SMask") require(each == "/None", where + " without a mask");
      if (key == "/ca" || key == "/CA") require(each == 1.0, where + " opaque");
      if (key == "/BM") require(each == "/Normal", where + " with no other blending");
      if (key == "/Group" || key == "/TR" || key == "/AA" || key == "/JS")
        require(false, where + " without " + key);
      if (key == "/Subtype") require(each != "/Image", where + " no picture, which could have a mask");
      walk(each, where);
    }
  }

  void font(const Json& font, const std::string& name) {
    if (!is(font, "/Subtype", "/Type0")) {
      require(is(font, "/Subtype", "/CIDFontType2"), name + " of a known kind");
      return;
    }
    ++fonts_;
    const Json descendants = resolved(at(font, "/DescendantFonts"));
    const Json cid = descendants.is_array() && !descendants.empty() ? resolved(descendants[0]) : Json();
    const Json descriptor = resolved(at(cid, "/FontDescriptor"));
    require(is(font, "/Encoding", "/Identity-H") && is(cid, "/CIDToGIDMap", "/Identity"),
            name + " glyphs by number");
    const Json base = at(font, "/BaseFont");
    require(base.is_string() && std::regex_match(base.get<std::string>(), std::regex("/[A-Z]{6}\\+[^+]+")),
            name + " tag of a subset");
    require(names_.insert(base.dump()).second, name + " tag of its own");
    require(base == at(cid, "/BaseFont") && base == at(descriptor, "/FontName"), name + " one name");
    require(!data(at(font, "/ToUnicode")).isEmpty(), name + " letters");
    const QByteArray program = data(at(descriptor, "/FontFile2"));
    require(!program.isEmpty(), name + " embedded");
    if (!program.isEmpty()) glyphs(program, data(at(descriptor, "/CIDSet")), resolved(at(cid, "/W")), name);
  }

  // The glyphs of the font program are those of the set, with the widths of the list [0 [width...]].
  void glyphs(const QByteArray& program, const QByteArray& set, const Json& widths, const std::string& name) {
    const qsizetype count = number(program, table(program, "maxp") + 4, 2);
    std::size_t inSet = 0;
    for (qsizetype bit = 0; bit < set.size() * 8; ++bit) {
      const bool on = (static_cast<unsigned char>(set.at(bit / 8)) >> (7 - bit % 8) & 1) != 0;
      require(!on || bit < count, name + " set of glyphs in the program");
      if (on) ++inSet;
    }
    require(inSet == static_cast<std::size_t>(count), name + " set of all glyphs");
    const std::vector<double> claimed = widthsOf(widths);
    require(claimed.size() == static_cast<std::size_t>(count), name + " widths of all glyphs");
    const unsigned unit = number(program, table(program, "head") + 18, 2);
    const qsizetype metrics = number(program, table(program, "hhea") + 34, 2);
    for (std::size_t i = 0; i < std::min(claimed.size(), static_cast<std::size_t>(count)); ++i) {
      const qsizetype entry = table(program, "hmtx") + 4 * std::min(static_cast<qsizetype>(i), metrics - 1);
      const double width = 1000.0 * number(program, entry, 2) / unit;
      if (std::abs(width - claimed[i]) > 1) require(false, name + " width of glyph " + std::to_string(i));
    }
  }

  // The widths from glyph 0 on of a list [first [width...] first last width ...] without a gap.
  static std::vector<double> widthsOf(const Json& list) {
    std::vector<double> widths;
    for (std::size_t i = 0; i + 1 < list.size();) {
      if (list[i] != widths.size()) return {};
      if (list[i + 1].is_array()) {
        for (const Json& width : list[i + 1]) widths.push_back(width.get<double>());
        i += 2;
      } else if (i + 2 < list.size()) {
        widths.resize(list[i + 1].get<std::size_t>() + 1, list[i + 2].get<double>());
        i += 3;
      } else {
        return {};
      }
    }
    return widths;
  }

  static qsizetype table(const QByteArray& program, const char* tag) {
    for (unsigned i = 0; i < number(program, 4, 2); ++i) {
      const qsizetype entry = 12 + 16 * static_cast<qsizetype>(i);
      if (program.mid(entry, 4) == tag) return number(program, entry + 8, 4);
    }
    throw std::runtime_error(std::string("the font has no table ") + tag);
  }

  std::string bytes_;
  Json objects_;
  Json trailer_;
  Json metadata_;
  int fonts_ = 0;
  std::set<std::string> names_;
  std::vector<std::string> missing_;
};

}  // namespace

std::vector<std::string> missingForKeeping(const std::string& path) { return Examination(path).run(); }

std::string refusalOfValidator(const std::string& path) {
  std::string classes;
  for (const char* const library :
       {"preflight", "pdfbox2", "fontbox2", "xmpbox", "commons-logging", "javax.activation", "jaxb-api"}) {
    classes += (classes.empty() ? "" : ":") + ("/usr/share/java/" + std::string(library) + ".jar");
  }
  const CommandResult said = runCommand("java -XX:TieredStopAtLevel=1 -cp " + classes +
                                        " org.apache.pdfbox.preflight.Validator_A1b '" + path + "'");
  if (said.status == 0 && said.output.find(" is a valid PDF/A-1b file") != std::string::npos) return {};
  return said.output.empty() ? "no answer" : said.output;
}

}  // namespace cu::test
