#include <cerrno>
#include <cstdio>
#include <filesystem>

#include "stormmodel/mode_table.h"
#include "textutil/error_text.h"
#include "textutil/number_text.h"

namespace quillmere {
namespace {

constexpr int kOverflow = 6;
constexpr int kOutOfStringSpace = 14;
constexpr int kFileNotFound = 53;
constexpr int kDeviceIOError = 57;
constexpr int kInputPastEnd = 62;
constexpr int kPermissionDenied = 70;
constexpr int kPathFileAccessError = 75;
constexpr int kPathNotFound = 76;

// No sensible name comes near this; it keeps a file without separators from filling memory.
constexpr size_t kLongestField = 1 << 16;

bool IsBlank(int c) {
  return c == ' ' || c == '\t';
}
bool IsSeparator(int c) {
  return c == ',' || c == '\r' || c == '\n';
}

struct ReadFailure {
  int number;
};

// Fields of the file in order: a field ends at a comma, CR LF, CR, LF or the end of the file.
class FieldReader {
 public:
  explicit FieldReader(std::FILE* f) : f_(f) {}

  // The file is at its end when nothing remains after the last field and its separator.
  bool AtEnd() {
    const int c = Get();
    if (c == EOF) return true;
    std::ungetc(c, f_);
    return false;
  }

  std::string Text() {
    if (AtEnd()) throw ReadFailure{kInputPastEnd};
    int c = Get();
    while (IsBlank(c)) c = Get();
    std::string text;
    if (c == '"') {
      // A quoted name may hold commas and line ends; what follows the closing quote up to the
      // separator is dropped.
      for (c = Get(); c != '"' && c != EOF; c = Get()) Append(text, c);
      if (c == '"') c = Get();
      while (c != EOF && !IsSeparator(c)) c = Get();
    } else {
      for (; c != EOF && !IsSeparator(c); c = Get()) Append(text, c);
      while (!text.empty() && IsBlank(static_cast<unsigned char>(text.back()))) text.pop_back();
    }
    if (c == '\r') {
      const int next = Get();
      if (next != '\n' && next != EOF) std::ungetc(next, f_);
    }
    return text;
  }

  int16_t Number() {
    const double v = RoundHalfEven(Val(Text()));
    if (!(v >= -32768 && v <= 32767)) throw ReadFailure{kOverflow};
    return static_cast<int16_t>(v);
  }

 private:
  int Get() {
    const int c = std::getc(f_);
    if (c == EOF && std::ferror(f_)) throw ReadFailure{kDeviceIOError};
    return c;
  }
  static void Append(std::string& text, int c) {
    if (text.size() >= kLongestField) throw ReadFailure{kOutOfStringSpace};
    text.push_back(static_cast<char>(c));
  }

  std::FILE* f_;
};

int OpenFailure(const std::string& path, int error) {
  switch (error) {
    case EACCES:
    case EPERM:
      return kPermissionDenied;
    case ENOTDIR:
      return kPathNotFound;
    case ENOENT: {
      std::error_code ec;
      const std::filesystem::path parent = std::filesystem::path(path).parent_path();
      if (!parent.empty() && !std::filesystem::is_directory(parent, ec)) return kPathNotFound;
      return kFileNotFound;
    }
    default:
      return kPathFileAccessError;
  }
}

ModeFileMessage FileError(int number, const std::string& ModeFileName) {
  return {"FILE ERROR!",
          "Error " + NumberText(number) + " Occurred Loading " + ModeFileName + "." + "\r\n" +
              ErrorText(number),
          number};
}

}  // namespace

ModeFileResult LoadModeFile(const std::string& ModeFileName, ModeTable& table) {
  table = ModeTable{};
  ModeFileResult result;

  std::error_code ec;
  if (std::filesystem::is_directory(ModeFileName, ec)) {
    result.error = FileError(kPathFileAccessError, ModeFileName);
    return result;
  }
  std::FILE* f = ModeFileName.empty() ? nullptr : std::fopen(ModeFileName.c_str(), "rb");
  if (!f) {
    result.error = FileError(
        ModeFileName.empty() ? kFileNotFound : OpenFailure(ModeFileName, errno), ModeFileName);
    return result;
  }

  table.ModeCount = kModeRecords;
  FieldReader in(f);
  try {
    for (int i = 1; i <= kModeRecords; ++i) {
      table.ModeName[i] = in.Text();
      for (int k = 1; k <= 4; ++k) table.ModeLimits[i][k] = in.Number();
      if (in.AtEnd()) {
        table.ModeCount = static_cast<int16_t>(i);
        break;
      }
    }
    table.ModesLoaded = -1;
  } catch (const ReadFailure& e) {
    result.error = FileError(e.number, ModeFileName);
  }
  std::fclose(f);

  if (table.ModesLoaded && table.ModeCount > kActivityModes)
    result.notice =
        ModeFileMessage{"Mode File",
                        "The mode file " + ModeFileName + " holds more than six modes." + "\r\n" +
                            "Only the first six are used.",
                        0};
  return result;
}

}  // namespace quillmere
