#pragma once

#include <string_view>

#include "standins/lexbank/texts.h"

namespace tallyra::standins::lexbank {

// The texts for a language code. What counts is the part before the first '-' or '_', in any case and without
// blanks around it: "EN", "en-US", "ENGLISH"; "ZH", "zh-CN", "CHS", "GB"; "DE", "de-AT", "GERMAN". Any other
// code, an empty one too, gives English.
const Texts& texts_for(std::string_view language);

}  // namespace tallyra::standins::lexbank
