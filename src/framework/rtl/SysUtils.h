#pragma once
// String and conversion helpers of the runtime library.

#include "framework/rtl/Exceptions.h"
#include "framework/rtl/Format.h"
