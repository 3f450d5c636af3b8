#pragma once
// The value helpers of the runtime library in one include: exceptions, Format, format
// settings, string and number conversions, and dates. Variants.h stands apart.

#include "framework/rtl/Conversions.h"
#include "framework/rtl/DateFormat.h"
#include "framework/rtl/DateTime.h"
#include "framework/rtl/DateUtils.h"
#include "framework/rtl/Exceptions.h"
#include "framework/rtl/Format.h"
#include "framework/rtl/FormatSettings.h"
#include "framework/rtl/StringUtils.h"
