#pragma once

#include <string>

namespace quillmere {

// The words for a run-time error number: 53 gives "File Not Found", a number without words
// "Error #" and its number text (" 13", "-1").
std::string ErrorText(long long number);

}  // namespace quillmere
