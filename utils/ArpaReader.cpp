#include "utils/ArpaReader.h"

#include "utils/common_utils/encoding.h"
#include "utils/common_utils/text.h"

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <cmath>
#include <fstream>
#include <limits>

namespace zelvor {

namespace {

constexpr std::size_t MAX_ORDER = 1000;
constexpr float MAX_ROUNDED = 1e-4F; // what rounding may make of the logarithm of nearly 1
constexpr std::string_view CAPITAL_UNKNOWN = "<UNK>";

// A finite number; "-inf", as some toolkits write a probability of 0, is -99.
bool read_number(std::string_view text, float& number) {
    if (text.starts_with('+'))
        text.remove_prefix(1);
    double value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size())
        return false;
    number = value == -std::numeric_limits<double>::infinity() ? LOG10_ZERO : static_cast<float>(value);
    return std::isfinite(number);
}

bool read_count(std::string_view text, std::size_t& count) {
    text = trimmed(text);
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), count);
    return error == std::errc() && end == text.data() + text.size();
}

} // namespace

bool ArpaReader::fail(const std::string& expected) {
    m_error = (m_line_number > 0 ? "line " + std::to_string(m_line_number) + ": " : "") + "expected " + expected;
    return false;
}

bool ArpaReader::next_line(std::istream& file) {
    while (std::getline(file, m_buffer)) {
        ++m_line_number;
        m_line = trimmed(m_buffer);
        if (!m_line.empty())
            return true;
    }
    return false;
}

bool ArpaReader::read(const std::string& filename) {
    errno = 0;
    std::ifstream file(filename, std::ios::binary);
    bool is_good = file ? read_to_data(file) : fail("a file that can be read");
    while (is_good && m_line != "\\end\\") {
        if (!next_line(file))
            is_good = fail("\"\\end\\\": the file is cut short");
        else if (m_line.starts_with('\\'))
            is_good = m_line == "\\end\\" ? end_file() : begin_section();
        else
            is_good = m_order == 0 ? read_header_line() : read_ngram();
    }
    if (is_good)
        add_warnings(filename);
    else
        m_error = filename + ": " + m_error;
    m_system_error = !file.is_open() || file.bad() ? errno : 0; // otherwise of what was tried again
    return is_good;
}

// What precedes "\data\" is comment.
bool ArpaReader::read_to_data(std::istream& file) {
    while (next_line(file)) {
        const bool is_first = m_line_number == 1;
        if (is_first && m_line.starts_with(BYTE_ORDER_MARK))
            m_line = trimmed(m_line.substr(BYTE_ORDER_MARK.size()));
        if (m_line == "\\data\\")
            return true;
        if (is_first && m_line.starts_with("\x1F\x8B"))
            return fail("text, but the file is compressed: unpack it with gunzip first");
        if (is_first && m_line == "iARPA")
            return fail(
                "a finished model, not one in the making (iARPA): let its toolkit compile it to ARPA text first");
    }
    return fail("\"\\data\\\": no ARPA file, or a binary model, which its own toolkit can write as ARPA text");
}

bool ArpaReader::read_header_line() {
    const std::size_t equals = m_line.find('=');
    std::size_t order = 0;
    std::size_t count = 0;
    if (!m_line.starts_with("ngram") || equals == std::string_view::npos ||
        !read_count(m_line.substr(5, equals - 5), order) || !read_count(m_line.substr(equals + 1), count) ||
        order == 0 || order > MAX_ORDER)
        return fail("\"ngram ORDER=COUNT\" or a section \"\\1-grams:\"");
    m_announced.resize(std::max(m_announced.size(), order));
    m_announced[order - 1] = count;
    return true;
}

bool ArpaReader::begin_section() {
    const std::string expected = "\\" + std::to_string(m_order + 1) + "-grams:";
    if (m_line != expected || m_order == MAX_ORDER)
        return fail("\"" + expected + "\" or \"\\end\\\"");
    place_capital_unknown();
    ++m_order;
    m_counted.push_back(0);
    return true;
}

bool ArpaReader::end_file() {
    place_capital_unknown();
    return m_order > 0 || fail("a section \"\\1-grams:\"");
}

// Only behind the 1-grams is it known whether "<UNK>" stands for "<unk>" or is a word of its own.
void ArpaReader::place_capital_unknown() {
    if (m_order != 1 || !m_capital_unknown)
        return;
    const unsigned int word = m_has_unknown ? m_vocab.add(CAPITAL_UNKNOWN) : NgramTable::UNKNOWN;
    m_ngrams.set(m_ngrams.add(NgramTable::ROOT, word), m_capital_unknown->first, m_capital_unknown->second);
}

bool ArpaReader::read_ngram() {
    m_fields = split_tokens(m_line, " \t");
    float log10_prob = 0;
    float log10_backoff = 0;
    const bool has_backoff = m_fields.size() == m_order + 2;
    if ((!has_backoff && m_fields.size() != m_order + 1) || !read_number(m_fields[0], log10_prob) ||
        log10_prob > MAX_ROUNDED || (has_backoff && !read_number(m_fields.back(), log10_backoff)))
        return fail("a log10 probability, " + std::to_string(m_order) +
                    " words and perhaps a log10 back-off weight: " + get_substr(std::string(m_line), 60));
    if (log10_prob > 0) {
        log10_prob = 0;
        if (++m_num_rounded == 1)
            m_first_rounded_line = m_line_number;
    }
    ++m_counted.back();
    if (m_order == 1 && m_fields[1] == CAPITAL_UNKNOWN) {
        if (!m_capital_unknown)
            m_capital_unknown.emplace(log10_prob, log10_backoff);
        return true;
    }
    std::uint32_t ngram = NgramTable::ROOT;
    if (!read_words(ngram))
        return false;
    // "<unk>" is there from the start, with the probability that a file without it gets
    const bool is_unknown = m_order == 1 && m_fields[1] == "<unk>";
    m_has_unknown = m_has_unknown || is_unknown;
    if (is_unknown || !m_ngrams.has_prob(ngram))
        m_ngrams.set(ngram, log10_prob, log10_backoff);
    return true;
}

unsigned int ArpaReader::find_word(std::string_view text) const {
    const bool is_unknown = text == CAPITAL_UNKNOWN && m_capital_unknown && !m_has_unknown;
    return is_unknown ? NgramTable::UNKNOWN : m_vocab.find(text);
}

// A context that has no line of its own is entered without a probability.
bool ArpaReader::read_words(std::uint32_t& ngram) {
    for (std::size_t i = 1; i <= m_order; ++i) {
        const unsigned int word = m_order == 1 ? m_vocab.add(m_fields[i]) : find_word(m_fields[i]);
        if (m_order > 1 && m_ngrams.find(NgramTable::ROOT, word) == NgramTable::NONE)
            return fail("words of the 1-grams, not " + get_substr(std::string(m_fields[i]), 60));
        ngram = m_ngrams.add(ngram, word);
    }
    return true;
}

void ArpaReader::add_warnings(const std::string& filename) {
    if (m_num_rounded > 0)
        m_warnings.push_back(filename + ": log10 probabilities above 0 count as 0: " + std::to_string(m_num_rounded) +
                             ", the first one on line " + std::to_string(m_first_rounded_line));
    const std::size_t orders = std::max(m_announced.size(), m_counted.size());
    m_announced.resize(orders);
    m_counted.resize(orders);
    for (std::size_t i = 0; i < orders; ++i)
        if (m_announced[i] != m_counted[i])
            m_warnings.push_back(filename + ": " + std::to_string(m_announced[i]) + " " + std::to_string(i + 1) +
                                 "-grams announced, " + std::to_string(m_counted[i]) + " found");
}

} // namespace zelvor
