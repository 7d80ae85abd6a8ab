#pragma once

#include "training/Conversion.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace zelvor {

/// An option of a conversion by its name, as a command line or a binding offers it.
struct ConversionSetting {
    enum class Kind : std::uint8_t { FLAG, TEXT, LIST, PATH, NUMBER }; ///< a list is separated by commas

    /// What it is about.
    enum class Topic : std::uint8_t {
        RUN,
        READING,
        ATTRIBUTES, ///< the reading of annotation in attributes, so without a lexicon only
        WRITING,
        COLUMNS, ///< the writing of columns only
    };

    std::string_view name; ///< "punctuation-tag"
    char letter = '\0';    ///< its short name, where it has one
    Kind kind = Kind::TEXT;
    Topic topic = Topic::RUN;
    /// Throws std::invalid_argument, which says what the value should be. That of a flag does not matter.
    void (*set)(ConversionTask& task, const std::string& value) = nullptr;
};

/// All but the inputs.
std::span<const ConversionSetting> conversion_settings();

/// Null where there is none of this name.
const ConversionSetting* find_setting(std::string_view name);

/// Ends the reading of settings: makes choices that follow from others. Throws std::invalid_argument where two of those
/// that were given do not go together.
void complete_settings(ConversionTask& task, const std::vector<const ConversionSetting*>& given);

/// The cores that the process may use, which is how many jobs there are by default.
std::size_t available_cores();

} // namespace zelvor
