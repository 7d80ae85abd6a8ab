#pragma once

#include "training/TokenAttributes.h"

#include <string>
#include <string_view>
#include <vector>

namespace zelvor {

/// Where a value of a token stands: in an attribute, written as in the document ("lemma", "xml:id"), or in one of the
/// keys of an attribute that holds "KEY=VALUE|KEY=VALUE" ("msd:Case"). Only "xml:" begins the name of an attribute; any
/// other colon, of several the last, stands before a key.
class ValueSource {
public:
    /// Throws std::invalid_argument, which says why, on what is no source.
    explicit ValueSource(std::string_view name);

    const std::string& attribute() const { return m_attribute; }
    const std::string& key() const { return m_key; } ///< empty: the whole of the attribute

    /// Sets the value, white space at its ends cut and each run inside it made one blank; empty where there is none. Of
    /// the pointers in "ana" each gives what it points to, joined with "|": "#pos.N mte:Ncmsg" is "pos.N|Ncmsg".
    void read(const TokenAttributes& attributes, std::string& value) const;

private:
    std::string m_attribute, m_key;
};

/// Several sources of one value, of which the first that gives something counts.
class ValueSources {
public:
    enum class Use {
        FORM,  ///< "text" stands for the text of the element
        FEATS, ///< the whole of "msd" is taken without its keys UPosTag and XPosTag
        OTHER,
    };

    /// Names of sources, separated by commas. Throws std::invalid_argument as they do.
    ValueSources(std::string_view names, Use use);

    /// `text` is that of the element.
    void read(const TokenAttributes& attributes, std::string_view text, std::string& value) const;

private:
    std::vector<ValueSource> m_sources;
    std::vector<bool> m_is_text; ///< these sources are but places in the order
    Use m_use;
};

/// Sets `value` to the text without white space at its ends, each run inside it made one blank.
void collapse_blanks(std::string_view text, std::string& value);

/// The elements of a list that is separated by commas; one for the empty list.
std::vector<std::string_view> split_list(std::string_view list);

} // namespace zelvor
