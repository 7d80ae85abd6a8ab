#pragma once

/// The door to the lexicon utilities: all of them with one include.
#include "utils/lexicon_utils/names.h"
#include "utils/lexicon_utils/suffixes.h"
#include "utils/lexicon_utils/word_classes.h"
