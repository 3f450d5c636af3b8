#include "framework/rtl/FormatSettings.h"

namespace quil {

TFormatSettings FormatSettings;

}  // namespace quil
