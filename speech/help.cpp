#include "speech/help.h"

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <memory>

namespace quillmere {

namespace {

constexpr std::size_t kHelpRoom = 1001;  // indexes 0 to 1000
// A spoken unit longer than this is no help to anyone; the rest of such a line is dropped.
constexpr std::size_t kLongestLine = 1 << 16;
// What all taken lines of one file may hold together: reading stops there. Hours of speech.
constexpr std::size_t kMostBytes = 4 << 20;
constexpr std::size_t kBlock = 1 << 16;

// Characters, not bytes: a help line may hold letters outside ASCII.
std::size_t CharCount(const std::string& s) {
  std::size_t n = 0;
  for (unsigned char c : s) n += (c & 0xC0) != 0x80;
  return n;
}

bool Taken(const std::string& line) {
  return CharCount(line) > 2 && line.compare(0, 2, "\\\\") != 0;
}

// A line cut at kLongestLine bytes may end inside a character: that part goes.
void CutToWholeCharacters(std::string& s) {
  if (s.size() < kLongestLine) return;
  std::size_t lead = s.size();
  while (lead > 0 && s.size() - lead < 4 &&
         (static_cast<unsigned char>(s[lead - 1]) & 0xC0) == 0x80)
    --lead;
  if (lead == 0) return;
  const unsigned char c = static_cast<unsigned char>(s[lead - 1]);
  const std::size_t length = c < 0x80 ? 1 : c >= 0xF0 ? 4 : c >= 0xE0 ? 3 : c >= 0xC0 ? 2 : 1;
  if (s.size() - (lead - 1) < length) s.erase(lead - 1);
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
  std::unique_ptr<std::FILE, int (*)(std::FILE*)> f(std::fopen(path.c_str(), "rb"), std::fclose);
  if (!f) return std::vector<std::string>(kHelpRoom);

  // Read in blocks, never more than one line's room at a time: a huge file without line ends
  // costs time, not memory.
  std::string line;
  bool first = true;
  std::size_t taken = 0;
  const auto full = [&] { return lines.size() >= kHelpRoom || taken >= kMostBytes; };
  const auto endOfLine = [&] {
    if (first && line.compare(0, 3, "\xEF\xBB\xBF") == 0) line.erase(0, 3);  // an editor's BOM
    first = false;
    if (!line.empty() && line.back() == '\r') line.pop_back();  // a file saved on Windows
    if (Taken(line)) {
      taken += line.size();
      lines.push_back(line);
    }
    line.clear();
  };
  std::vector<char> block(kBlock);
  bool pending = false;  // a line has begun and not ended
  for (std::size_t n; !full() && (n = std::fread(block.data(), 1, kBlock, f.get())) > 0;) {
    for (std::size_t i = 0; i < n && !full(); ++i) {
      if (block[i] == '\n') {
        CutToWholeCharacters(line);
        endOfLine();
        pending = false;
      } else {
        if (line.size() < kLongestLine) line.push_back(block[i]);
        pending = true;
      }
    }
  }
  if (pending && !full()) {
    CutToWholeCharacters(line);
    endOfLine();
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
