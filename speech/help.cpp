#include "speech/help.h"

#include <filesystem>
#include <fstream>

namespace quillmere {

namespace {

constexpr std::size_t kHelpRoom = 1001;  // indexes 0 to 1000

// Characters, not bytes: a help line may hold letters outside ASCII.
std::size_t CharCount(const std::string& s) {
  std::size_t n = 0;
  for (unsigned char c : s) n += (c & 0xC0) != 0x80;
  return n;
}

bool Taken(const std::string& line) {
  return CharCount(line) > 2 && line.compare(0, 2, "\\\\") != 0;
}

bool BlankOnly(const std::string& s) {
  return s.find_first_not_of(' ') == std::string::npos;
}

}  // namespace

bool FileExists(const std::string& path) {
  std::error_code ec;
  if (std::filesystem::is_directory(path, ec)) return false;
  std::ifstream in(path, std::ios::binary);
  return in.is_open();
}

std::vector<std::string> LoadHelpLines(const std::string& path) {
  std::vector<std::string> lines;
  if (!FileExists(path)) return std::vector<std::string>(kHelpRoom);
  std::ifstream in(path, std::ios::binary);
  std::string line;
  bool first = true;
  while (lines.size() < kHelpRoom && std::getline(in, line)) {
    if (first && line.compare(0, 3, "\xEF\xBB\xBF") == 0) line.erase(0, 3);  // an editor's BOM
    first = false;
    if (!line.empty() && line.back() == '\r') line.pop_back();  // a file saved on Windows
    if (Taken(line)) lines.push_back(line);
  }
  lines.resize(lines.size() + 2);
  return lines;
}

bool HelpWalk::Step(Speaker& speaker, std::optional<int> NewRun) {
  if (NewRun) index = *NewRun;
  const int last = static_cast<int>(lines.size()) - 1;
  if (last <= 0) return false;
  if (speaker.CancelFlag) {
    speaker.CancelFlag = 0;
    return false;
  }
  if (index >= 0 && index <= last && !BlankOnly(lines[index])) {
    speaker.voice().Speak(lines[index], SVSFDefault);
  }
  speaker.Yield();
  ++index;
  if (index > last) {
    index = 1;
    return false;
  }
  return true;
}

}  // namespace quillmere
