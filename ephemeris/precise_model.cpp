// Which ephemerides this build carries, and their names.

#include "ephemeris/precise.h"

namespace quillmere {

bool PreciseEphemerisBuilt() {
#ifdef QUILLMERE_PRECISE
  return true;
#else
  return false;
#endif
}

bool ParseEphemerisModel(const std::string& word, EphemerisModel& model) {
  if (word == "classic") {
    model = EphemerisModel::Classic;
    return true;
  }
  if (word == "precise") {
    model = EphemerisModel::Precise;
    return true;
  }
  return false;
}

EphemerisModel EphemerisModelSetting(const std::string& stored) {
  EphemerisModel model = EphemerisModel::Classic;
  if (!ParseEphemerisModel(stored, model) || !PreciseEphemerisBuilt())
    return EphemerisModel::Classic;
  return model;
}

}  // namespace quillmere
