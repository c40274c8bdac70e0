#pragma once
// The spoken help: two text files beside the program, walked line by line with F1.

#include <optional>
#include <string>
#include <vector>

#include "speech/speaker.h"

namespace quillmere {

// The taken lines of a help file, then two empty elements. Lines of 0 to 2 characters and lines
// that begin with two backslashes are dropped; at most 1001 lines are taken. A line longer than
// 64 KB is cut there (at a whole character), and reading stops once the taken lines hold 4 MB.
// A missing or unreadable file gives 1001 empty elements.
std::vector<std::string> LoadHelpLines(const std::string& path);

// True if `path` is a file that can be opened for reading.
bool FileExists(const std::string& path);

// One walk's list and index (HelpIndex / PredictHelpIndex).
struct HelpWalk {
  std::vector<std::string> lines;
  int index = 0;

  // One step; NewRun, given, sets the index. True while more lines are to come.
  bool Step(Speaker& speaker, std::optional<int> NewRun = std::nullopt);
};

}  // namespace quillmere
