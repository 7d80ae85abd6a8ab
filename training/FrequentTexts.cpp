#include "training/FrequentTexts.h"

#include <algorithm>
#include <cstring>
#include <functional>

namespace zelvor {

namespace {

constexpr std::size_t MAX_FILE = 4096; // bytes; a longer name is not kept
constexpr std::size_t FEW = 1024; // entries; a store of more is made as large as it may become, and filled by and by

/// As much of a text as counts, in whole characters.
std::string_view beginning(std::string_view text) {
    if (text.size() <= FrequentTexts::MAX_TEXT)
        return text;
    std::size_t length = FrequentTexts::MAX_TEXT;
    while (length > 0 && (static_cast<unsigned char>(text[length]) & 0xC0) == 0x80)
        --length;
    return text.substr(0, length);
}

/// Up to eight bytes.
std::uint64_t word_at(const char* text, std::size_t length) {
    std::uint64_t word = 0;
    std::memcpy(&word, text, length);
    return word;
}

constexpr std::size_t MAX_WHOLE = 8; ///< bytes of a text that its hash, length and kind tell from any other

/// Most texts are short: these are mixed at once.
std::uint64_t hash_of(std::uint8_t kind, std::string_view text) {
    constexpr std::uint64_t odd = 0x9E3779B97F4A7C15;
    const std::size_t size = text.size();
    std::uint64_t hash = (size * 256 + kind) * odd;
    if (size > 16)
        hash ^= std::hash<std::string_view>()(text);
    else if (size > MAX_WHOLE)
        hash = (hash ^ word_at(text.data(), 8)) * odd ^ word_at(text.data() + size - 8, 8);
    else if (size >= 4)
        hash ^= word_at(text.data(), 4) << 32 | word_at(text.data() + size - 4, 4);
    else if (size > 0)
        hash ^= word_at(text.data(), 1) << 16 | word_at(text.data() + size / 2, 1) << 8 |
                word_at(text.data() + size - 1, 1);
    hash = (hash ^ hash >> 32) * odd;
    return hash ^ hash >> 29;
}

std::string_view kept_file(std::string_view file) { return file.size() <= MAX_FILE ? file : std::string_view(); }

} // namespace

std::uint32_t FrequentTexts::find(std::uint8_t kind, std::string_view text) const {
    const std::string_view kept = beginning(text);
    return find(hash_of(kind, kept), kind, kept);
}

std::uint32_t FrequentTexts::find(std::uint64_t hash, std::uint8_t kind, std::string_view text) const {
    return m_index.find(hash, [&](std::uint32_t number) {
        const Entry& entry = m_entries[number];
        return entry.hash == hash && entry.kind == kind && entry.length == text.size() &&
               (text.size() <= MAX_WHOLE || text_of(entry) == text);
    });
}

bool FrequentTexts::has_room(std::string_view text, std::string_view file) const {
    const std::size_t bytes = m_bytes.size() + beginning(text).size() + kept_file(file).size();
    return m_entries.size() < m_room.texts && bytes <= m_room.bytes;
}

std::uint32_t FrequentTexts::enter(std::uint8_t kind, std::string_view text, const Place& place) {
    const std::string_view kept = beginning(text);
    return enter(hash_of(kind, kept), kind, kept, place);
}

std::uint32_t FrequentTexts::enter(std::uint64_t hash, std::uint8_t kind, std::string_view text, const Place& place) {
    const std::string_view file = kept_file(place.file);
    if (m_entries.size() == FEW)
        m_entries.reserve(m_room.texts);
    reserve(m_bytes.size() + text.size() + file.size());
    m_entries.push_back({hash, 0, static_cast<std::uint32_t>(m_bytes.size()), place.document, place.line,
                         static_cast<std::uint16_t>(file.size()), static_cast<std::uint8_t>(text.size()), kind});
    m_bytes.append(text).append(file);
    return m_index.add([this](std::uint32_t number) { return m_entries[number].hash; });
}

/// Never more than there is room for.
void FrequentTexts::reserve(std::size_t bytes) {
    if (bytes > m_bytes.capacity())
        m_bytes.reserve(std::max(bytes, std::min<std::size_t>(2 * m_bytes.capacity(), m_room.bytes)));
}

std::size_t FrequentTexts::bytes() const {
    return sizeof *this + m_entries.capacity() * (sizeof(Entry) + 2 * sizeof(std::uint32_t)) + m_bytes.capacity();
}

void FrequentTexts::add(const FrequentTexts& other, std::uint32_t document) {
    for (const Entry& entry : other.m_entries) {
        const std::string_view text = other.text_of(entry), file = other.file_of(entry);
        std::uint32_t number = find(entry.hash, entry.kind, text);
        if (number == NONE) {
            while (!has_room(text, file))
                make_room();
            number = enter(entry.hash, entry.kind, text, {document, entry.line, file});
        }
        raise(number, entry.count);
    }
}

void FrequentTexts::make_room() {
    std::array<std::size_t, KINDS> texts{};
    for (const Entry& entry : m_entries)
        ++texts[entry.kind];
    const auto largest = std::ranges::max_element(texts);
    const auto kind = static_cast<std::uint8_t>(largest - texts.begin());
    std::vector<std::uint64_t> counts;
    counts.reserve(*largest);
    for (const Entry& entry : m_entries)
        if (entry.kind == kind)
            counts.push_back(entry.count);
    const auto middle = counts.begin() + static_cast<std::ptrdiff_t>(counts.size() / 2);
    std::ranges::nth_element(counts, middle);
    drop(kind, *middle);
}

/// Lowers the counts of a kind; who has none left goes.
void FrequentTexts::drop(std::uint8_t kind, std::uint64_t cut) {
    m_errors[kind] += cut;
    std::size_t bytes = 0;
    auto kept = m_entries.begin();
    for (Entry& entry : m_entries) {
        if (entry.kind == kind && entry.count <= cut)
            continue;
        entry.count -= entry.kind == kind ? cut : 0;
        const std::size_t length = std::size_t{entry.length} + entry.file_length;
        std::copy_n(m_bytes.begin() + entry.begin, length, m_bytes.begin() + static_cast<std::ptrdiff_t>(bytes));
        entry.begin = static_cast<std::uint32_t>(bytes);
        bytes += length;
        *kept++ = entry;
    }
    m_entries.erase(kept, m_entries.end());
    m_bytes.resize(bytes);
    m_index = {};
    for (std::size_t i = 0; i < m_entries.size(); ++i)
        m_index.add([this](std::uint32_t number) { return m_entries[number].hash; });
}

std::vector<FrequentTexts::Text> FrequentTexts::sorted(std::uint8_t kind) const {
    std::vector<Text> texts;
    for (const Entry& entry : m_entries)
        if (entry.kind == kind && entry.count > 0)
            texts.push_back({text_of(entry), entry.count, {entry.document, entry.line, file_of(entry)}});
    std::ranges::stable_sort(texts, std::greater<>(), &Text::count);
    return texts;
}

} // namespace zelvor
