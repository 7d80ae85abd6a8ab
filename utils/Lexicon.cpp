#include "utils/Lexicon.h"

#include "utils/common_utils/encoding.h"
#include "utils/common_utils/files.h"
#include "utils/common_utils/output_file.h"
#include "utils/common_utils/text.h"
#include "utils/common_utils/utf8.h"

#include <algorithm>
#include <charconv>
#include <sstream>
#include <stdexcept>
#include <string_view>
#include <system_error>

namespace zelvor {

namespace {

constexpr std::uint32_t NONE = 0xFFFFFFFF;
constexpr std::size_t REQUIRED_FIELDS = 22;
constexpr std::ptrdiff_t SEPARATORS = 30;

/// Its first characters; cut so that what is valid stays valid. What is no text is "?".
std::string excerpt(std::string_view line) {
    constexpr std::size_t max_length = 60;
    std::u32string text = decode_utf8(line);
    std::ranges::replace_if(
        text, [](char32_t character) { return character < U' ' || character == 0x7F; }, U'?');
    return encode_utf8(text.substr(0, max_length)) + (text.size() > max_length ? "..." : "");
}

std::size_t hash_of(std::string_view text) { return std::hash<std::string_view>()(text); }

/// Equal for the entries that a merge may fold, whatever a derived class says of its lemma.
std::size_t analysis_hash(const LexicalEntry& entry) {
    return hash_of(entry.BaseLexicalEntry::get_lemma()) * 31 +
           hash_of(entry.BaseLexicalEntry::get_abbreviated_word_form());
}

/// Empty for a line that can be read.
std::string fault_of(std::string_view line) {
    if (!is_valid_utf8(line))
        return NOT_UTF8;
    if (const std::size_t fields = split_fields(line, "#").size(); fields < REQUIRED_FIELDS)
        return std::to_string(fields) + " of the " + std::to_string(REQUIRED_FIELDS) +
               " fields that a line must have: " + excerpt(line);
    return "";
}

/// Why an entry's line could not be read back; null when it can.
const char* why_not_written(std::string_view line) {
    if (std::ranges::count(line, '#') != SEPARATORS || line.find('\n') + 1 != line.size())
        return "a value with \"#\" or a line end cannot be written: ";
    if (line.starts_with("//"))
        return "a line that begins with \"//\" would be a comment: ";
    return is_valid_utf8(line) ? nullptr : "a value that is not UTF-8 cannot be written: ";
}

/// The lines that hold entries, as views of the text.
std::vector<std::string_view> entry_lines(std::string_view text, const std::string& filename,
                                          const Lexicon::BadLine& on_bad_line) {
    std::vector<std::string_view> lines;
    if (text.starts_with(BYTE_ORDER_MARK))
        text.remove_prefix(BYTE_ORDER_MARK.size());
    for (std::size_t number = 1; !text.empty(); ++number) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        const std::string_view line = text.substr(0, end);
        text.remove_prefix(std::min(end + 1, text.size()));
        if (line.starts_with("//") || trimmed(line).empty())
            continue;
        const std::string fault = fault_of(line);
        if (fault.empty())
            lines.push_back(line);
        else if (on_bad_line)
            on_bad_line(number, fault);
        else
            throw std::invalid_argument(filename + ":" + std::to_string(number) + ": " + fault);
    }
    return lines;
}

/// Of a line that can be read.
std::unique_ptr<LexicalEntry> make_entry(std::string_view line, const std::string& source) {
    auto entry = std::make_unique<LexicalEntry>();
    entry->parse_latin(std::string(line));
    if (!entry->get_lemma().empty())
        entry->set_word_form(entry->get_word_form()); // one that is spelled out is to fold into one that is not
    if (source.empty())
        return entry;
    entry->insert_originating_source_wordforms(source);
    entry->insert_originating_source_lemmas(source);
    entry->insert_originating_source_pos(source);
    return entry;
}

} // namespace

Lexicon::Index::Chain& Lexicon::Index::make_room(std::size_t hash, std::uint32_t entry) {
    if (m_next.size() <= entry)
        m_next.resize(entry + std::size_t{1}, NONE);
    return m_chains.try_emplace(hash, Chain{NONE, NONE}).first->second;
}

void Lexicon::Index::enter(Chain& chain, std::uint32_t entry) noexcept {
    (chain.first == NONE ? chain.first : m_next[chain.last]) = entry;
    chain.last = entry;
}

template<typename Use>
void Lexicon::Index::visit(std::size_t hash, Use use) const {
    const auto chain = m_chains.find(hash);
    if (chain == m_chains.end())
        return;
    for (std::uint32_t entry = chain->second.first; entry != NONE && !use(entry);)
        entry = m_next[entry];
}

std::size_t Lexicon::for_each_entry(const std::string& filename, const std::string& source, const BadLine& on_bad_line,
                                    const std::function<void(std::unique_ptr<LexicalEntry> entry)>& use) {
    if (source.find_first_of(std::string_view("#,\r\n\0", 5)) != std::string::npos || trimmed(source) != source ||
        !is_valid_utf8(source))
        throw std::invalid_argument("no name of a source: " + excerpt(source));
    const std::string text = read_file(filename); // whole, so that nothing is added of a file with a bad line
    if (const char* const reason = why_not_utf8_text(text))
        throw std::invalid_argument("the lexicon " + filename + " " + reason);
    const std::vector<std::string_view> lines = entry_lines(text, filename, on_bad_line);
    for (const std::string_view line : lines)
        use(make_entry(line, source));
    return lines.size();
}

std::size_t Lexicon::read(const std::string& filename, const BadLine& on_bad_line) {
    return for_each_entry(filename, "", on_bad_line,
                          [this](std::unique_ptr<LexicalEntry> entry) { append(std::move(entry)); });
}

std::size_t Lexicon::merge(const std::string& filename, const std::string& source, bool extended_comparison,
                           const BadLine& on_bad_line) {
    const std::size_t size_before = size();
    for_each_entry(filename, source, on_bad_line,
                   [&](std::unique_ptr<LexicalEntry> entry) { add(std::move(entry), extended_comparison); });
    return size() - size_before;
}

bool Lexicon::add(std::unique_ptr<LexicalEntry> entry, bool extended_comparison) {
    if (!entry)
        return false;
    std::uint32_t target = NONE;
    m_by_analysis.visit(analysis_hash(*entry), [&](std::uint32_t stored) {
        const LexicalEntry& candidate = *m_owned[stored];
        if (entry->m_word_form == candidate.m_word_form && entry->agrees_with(candidate, extended_comparison))
            target = stored;
        return target != NONE;
    });
    if (target == NONE) {
        append(std::move(entry));
        return true;
    }
    Index::Chain* const by_id = id_of(*m_owned[target]) ? nullptr : room_for_id(*entry, target);
    entry->fold_into(*m_owned[target]);
    if (by_id && id_of(*m_owned[target]))
        m_by_id.enter(*by_id, target);
    return false;
}

void Lexicon::append(std::unique_ptr<LexicalEntry> entry) {
    if (!entry)
        return;
    const auto number = static_cast<std::uint32_t>(m_owned.size());
    // where memory is lacking, nothing becomes longer
    Index::Chain& by_analysis = m_by_analysis.make_room(analysis_hash(*entry), number);
    Index::Chain& by_lemma = m_by_lemma.make_room(hash_of(entry->get_lemma()), number);
    Index::Chain& by_form = m_by_form.make_room(hash_of(entry->get_word_form()), number);
    Index::Chain* const by_id = room_for_id(*entry, number);
    if (m_entries.size() == m_entries.capacity())
        m_entries.reserve(2 * m_entries.size() + 16);
    m_owned.push_back(std::move(entry));
    m_entries.push_back(m_owned.back().get());
    m_by_analysis.enter(by_analysis, number);
    m_by_lemma.enter(by_lemma, number);
    m_by_form.enter(by_form, number);
    if (by_id)
        m_by_id.enter(*by_id, number);
}

/// Null for one without an id.
Lexicon::Index::Chain* Lexicon::room_for_id(const LexicalEntry& entry, std::uint32_t number) {
    const auto id = id_of(entry);
    return id ? &m_by_id.make_room(static_cast<std::size_t>(*id), number) : nullptr;
}

std::optional<int> Lexicon::id_of(const LexicalEntry& entry) {
    const std::string text = entry.get_word_form_id();
    int id = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), id);
    return error == std::errc() && end == text.data() + text.size() ? std::optional(id) : std::nullopt;
}

const LexicalEntry* Lexicon::find_id(int word_form_id) const {
    const LexicalEntry* found = nullptr;
    m_by_id.visit(static_cast<std::size_t>(word_form_id), [&](std::uint32_t entry) {
        found = m_entries[entry];
        return true;
    });
    return found;
}

template<typename IsMeant>
Lexicon::Entries Lexicon::select(const Index& index, const std::string& text, IsMeant is_meant) const {
    Entries selected;
    index.visit(hash_of(text), [&](std::uint32_t entry) {
        if (is_meant(*m_entries[entry]))
            selected.push_back(m_entries[entry]);
        return false;
    });
    return selected;
}

Lexicon::Entries Lexicon::find_lemma(const std::string& lemma) const {
    return select(m_by_lemma, lemma, [&](const LexicalEntry& entry) { return entry.get_lemma() == lemma; });
}

Lexicon::Entries Lexicon::find_form(const std::string& form) const {
    return select(m_by_form, form, [&](const LexicalEntry& entry) { return entry.get_word_form() == form; });
}

void Lexicon::write(const std::string& filename) const {
    OutputFile file(filename);
    std::ostringstream os;
    for (const auto& entry : m_owned) {
        os.str({});
        entry->export_latin(os);
        const std::string_view line = os.view();
        if (const char* const reason = why_not_written(line))
            throw std::invalid_argument(reason + excerpt(line));
        file.write(line);
    }
    file.commit();
}

} // namespace zelvor
