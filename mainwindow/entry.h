#pragma once
// How a line typed into the command line is read: value or command, and what a value means.

#include <optional>
#include <string>

#include "textutil/number_text.h"

namespace quillmere {

// A date and time read month first: "MM/DD/YYYY", "MM/DD/YYYY HH:MM[:SS]" and a time alone
// "HH:MM[:SS]" (on 30 December 1899, the date-time value's zero day). Nothing when the text is
// no such date or time.
std::optional<double> ParseDateTimeEntry(const std::string& text);

// The line as the interpreter sees it: upper case, without outer blanks.
std::string NormalizeEntry(const std::string& line);

// A value is what passes the numeric test, with or without its colons and slashes, or reads as a
// date or time.
bool IsValueEntry(const std::string& S);

// The short forms of the Jupiter and Sun menus completed to a full command.
std::string WithMenuLetter(const std::string& S, const std::string& PendingCommand);

}  // namespace quillmere
