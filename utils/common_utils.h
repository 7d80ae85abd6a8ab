#pragma once

/// The door to the common utilities: all of them with one include.
#include "utils/common_utils/case.h"
#include "utils/common_utils/code_points.h"
#include "utils/common_utils/crash_handler.h"
#include "utils/common_utils/distance.h"
#include "utils/common_utils/encoding.h"
#include "utils/common_utils/entity_guard.h"
#include "utils/common_utils/numbers.h"
#include "utils/common_utils/process.h"
#include "utils/common_utils/text.h"
#include "utils/common_utils/utf8.h"
#include "utils/common_utils/xml.h"
