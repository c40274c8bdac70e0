#pragma once
// What the main window needs of the machine, as small interfaces: the real ones back the
// program, tests give fixed ones.

#include <string>

namespace quillmere {

// The system's zone as the platform reports it: minutes, UT = local time + bias.
struct TimeZoneInformation {
  int result = -1;  // 0 zone unknown, 1 standard time, 2 daylight time, anything else failure
  long Bias = 0;
  long StandardBias = 0;
  long DaylightBias = 0;
};

// Local time minus UT in hours, east positive; fractions of an hour stay.
double DetectTimeZone(const TimeZoneInformation& zone);

class Clock {
 public:
  virtual ~Clock() = default;
  // The system's present local date and time as a date-time value.
  virtual double LocalNow() = 0;
  virtual TimeZoneInformation GetTimeZoneInformation() = 0;
};

// Modal messages with one OK button.
class MessageBoxes {
 public:
  virtual ~MessageBoxes() = default;
  virtual void Show(const std::string& title, const std::string& text) = 0;
};

}  // namespace quillmere
