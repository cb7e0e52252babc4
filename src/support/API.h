// The shared routines of text, numbers and controls, all at once.
#pragma once

#include "support/calendar_rules.h"
#include "support/control_reading.h"
#include "support/extremes.h"
#include "support/key_filter.h"
#include "support/locale_text.h"
#include "support/period_text.h"
#include "support/words.h"
