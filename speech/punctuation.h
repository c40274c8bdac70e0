#pragma once
// Words for punctuation, for engines that cannot be told to pronounce it themselves.

#include <string>

namespace quillmere {

// The text with each punctuation mark or blank replaced by its name, set off by blanks
// ("-5.5" becomes "minus 5 dot 5", "." becomes "dot"). Letters and digits stay as they are.
std::string PronouncePunctuation(const std::string& text);

}  // namespace quillmere
