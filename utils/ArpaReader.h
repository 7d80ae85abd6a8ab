#pragma once

#include "utils/ArpaTables.h"

#include <istream>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace zelvor {

/// Reads one ARPA file into a copy of a vocabulary's words and a table of its own.
class ArpaReader {
public:
    explicit ArpaReader(const WordTable& words) : m_vocab(words) {}

    bool read(const std::string& filename); ///< once; false: get_error() says why

    WordTable& vocab() { return m_vocab; }
    NgramTable& ngrams() { return m_ngrams; }
    std::size_t get_order() const { return m_order; }
    const std::string& get_error() const { return m_error; }
    int get_system_error() const { return m_system_error; } ///< what kept the file from being read, or 0
    const std::vector<std::string>& get_warnings() const { return m_warnings; }

private:
    bool next_line(std::istream& file); ///< skips blank lines
    bool read_to_data(std::istream& file);
    bool read_header_line();
    bool begin_section();
    bool end_file();
    void place_capital_unknown();
    bool read_ngram();
    bool read_words(std::uint32_t& ngram);
    unsigned int find_word(std::string_view text) const;
    bool fail(const std::string& expected);
    void add_warnings(const std::string& filename);

    WordTable m_vocab;
    NgramTable m_ngrams;
    std::size_t m_order = 0;                                  ///< of the section that is being read; 0 in the header
    std::vector<std::size_t> m_announced;                     ///< n-grams by order - 1, from the header
    std::vector<std::size_t> m_counted;                       ///< the same, as read
    bool m_has_unknown = false;                               ///< whether there is a 1-gram "<unk>"
    std::optional<std::pair<float, float>> m_capital_unknown; ///< log10 probability and back-off weight of "<UNK>"
    std::size_t m_num_rounded = 0;                            ///< probabilities that rounding took above 1
    std::size_t m_first_rounded_line = 0;
    std::string m_buffer;
    std::string_view m_line; ///< trimmed
    std::vector<std::string_view> m_fields;
    std::size_t m_line_number = 0;
    std::string m_error;
    int m_system_error = 0;
    std::vector<std::string> m_warnings;
};

} // namespace zelvor
