#pragma once
// Latitude and longitude to and from the text the user reads, hears and types:
// degrees, minutes and seconds with colons and tenths of a second ("41:30:00.0").
// Latitude is north positive; longitude is west positive, 0 to 360 as a rule.

#include <string>

namespace quillmere {

// What TextToLat and TextToLong give for text out of range.
inline constexpr float kLatLongError = -999.0f;

std::string LatToText(float x);
std::string LongToText(float x);

// The observer's longitude as the program shows it: west as stored when DisplayWest is "W", else
// east, as 360 minus the west longitude.
std::string ShownLongitude(float ObsLong, const std::string& DisplayWest);

// Plain decimal degrees ("41.5", "41,5") or the colon forms "41:30" and "41:30:15,5".
// `s` is replaced by its trimmed form. Colon forms out of -90..90 give kLatLongError; a plain
// decimal is given back whatever its size, for the caller to judge.
float TextToLat(std::string& s);

// Plain decimal degrees with a point only ("75.5"; "75,5" reads as 75) or the colon forms
// "75:30" and "75:30:15,5", where the seconds may take a comma. A leading "-" means east of
// Greenwich in the colon forms ("-75:30" gives 284.5), while a plain negative decimal stays
// negative; a "+" is dropped. `s` is replaced by its trimmed form without its sign. Colon forms
// out of 0..360 give kLatLongError; a plain decimal is given back whatever its size.
float TextToLong(std::string& s);

// Val of the text after each comma in it has become a point (in `s` too); empty text gives 0.
double ParseDecimal(std::string& s);

}  // namespace quillmere
