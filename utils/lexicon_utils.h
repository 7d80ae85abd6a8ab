#pragma once

/// The door to the lexicon utilities: all of them with one include.
#include "utils/lexicon_utils/candidates.h"
#include "utils/lexicon_utils/lemmatizer_calls.h"
#include "utils/lexicon_utils/lemmatizer_maps.h"
#include "utils/lexicon_utils/lexicon_readers.h"
#include "utils/lexicon_utils/names.h"
#include "utils/lexicon_utils/option_names.h"
#include "utils/lexicon_utils/rules.h"
#include "utils/lexicon_utils/suffixes.h"
#include "utils/lexicon_utils/verbs.h"
#include "utils/lexicon_utils/word_classes.h"
#include "utils/lexicon_utils/wordnet.h"
