#include "training/FrequentTexts.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <functional>
#include <limits>

#include <unistd.h>

namespace zelvor {

namespace {

/// Entries; a store of more is made as large as it may become, and filled by and by.
constexpr std::size_t FEW = 1024, FIRST = 16;
constexpr std::size_t FIRST_BYTES = 256;

constexpr std::uint64_t ODD = 0x9E3779B97F4A7C15, OTHER_ODD = 0xC2B2AE3D27D4EB4F; // in their bits, too

/// As much of a text as is kept.
std::string_view beginning(std::string_view text) {
    if (text.size() <= FrequentTexts::MAX_SHOWN)
        return text;
    std::size_t length = FrequentTexts::MAX_SHOWN;
    while (length > 0 && (static_cast<unsigned char>(text[length]) & 0xC0) == 0x80)
        --length;
    return text.substr(0, length);
}

std::string_view kept_file(std::string_view file) {
    return file.size() <= FrequentTexts::MAX_FILE ? file : std::string_view();
}

template<typename Word>
std::uint64_t word_at(std::string_view text, std::size_t position) {
    Word word = 0;
    std::memcpy(&word, text.data() + position, sizeof word);
    return word;
}

} // namespace

FrequentTexts::Key FrequentTexts::long_key(std::uint32_t length_and_kind, std::string_view text) {
    Key key{0, 0, length_and_kind};
    const auto mix = [&key](std::uint64_t word) {
        key.first = std::rotl((key.first ^ word) * ODD, 31);
        key.last = std::rotl((key.last ^ word) * OTHER_ODD, 27);
    };
    for (std::size_t i = 0; i + 8 < text.size(); i += 8)
        mix(word_at<std::uint64_t>(text, i));
    mix(word_at<std::uint64_t>(text, text.size() - 8));
    return key;
}

/// Most texts are short.
inline FrequentTexts::Key FrequentTexts::key_of(std::uint8_t kind, std::string_view text) {
    const std::size_t size = text.size();
    const auto length_and_kind = static_cast<std::uint32_t>(size * KINDS + kind);
    if (size > 16)
        return long_key(length_and_kind, text);
    if (size >= 8)
        return {word_at<std::uint64_t>(text, 0), word_at<std::uint64_t>(text, size - 8), length_and_kind};
    if (size >= 4)
        return {word_at<std::uint32_t>(text, 0), word_at<std::uint32_t>(text, size - 4), length_and_kind};
    if (size == 0)
        return {0, 0, length_and_kind};
    return {word_at<std::uint8_t>(text, 0),
            word_at<std::uint8_t>(text, size / 2) << 8 | word_at<std::uint8_t>(text, size - 1), length_and_kind};
}

FrequentTexts::FrequentTexts(Room room) : m_room(room) {
    static const Seed seed = make_seed();
    m_seed = seed;
}

FrequentTexts::Seed FrequentTexts::make_seed() {
    Seed seed{ODD, OTHER_ODD};
    static_cast<void>(getentropy(&seed, sizeof seed)); // without it, these are a seed, too
    return seed;
}

/// Both halves of a product: each bit of either factor may tell.
inline std::uint64_t FrequentTexts::hash_of(const Key& key) const {
    __extension__ using Product = unsigned __int128;
    const Product product = Product{key.first ^ m_seed.first} * ((key.last ^ m_seed.last) + key.length_and_kind);
    return static_cast<std::uint64_t>(product) ^ static_cast<std::uint64_t>(product >> 64);
}

inline std::uint32_t FrequentTexts::find(const Key& key) const {
    return m_index.find(hash_of(key), [&](std::uint32_t number) {
        const Entry& entry = m_entries[number];
        return entry.first == key.first && entry.last == key.last && entry.length_and_kind == key.length_and_kind;
    });
}

std::uint32_t FrequentTexts::find(std::uint8_t kind, std::string_view text) const { return find(key_of(kind, text)); }

bool FrequentTexts::raise_known(std::uint8_t kind, std::string_view text, std::int64_t count) {
    const std::uint32_t number = find(key_of(kind, text));
    if (number == NONE)
        return false;
    raise(number, count);
    return true;
}

std::uint32_t FrequentTexts::enter(std::uint8_t kind, std::string_view text, const Place& place) {
    return enter(key_of(kind, text), beginning(text), place);
}

std::uint32_t FrequentTexts::enter(const Key& key, std::string_view shown, const Place& place) {
    const std::string_view file = kept_file(place.file);
    if (m_entries.size() == m_entries.capacity())
        m_entries.reserve(next_entries());
    if (const std::size_t bytes = m_bytes.size() + shown.size() + file.size(); bytes > m_bytes.capacity())
        m_bytes.reserve(next_bytes(bytes));
    m_entries.push_back({key.first, key.last, key.length_and_kind, static_cast<std::uint32_t>(m_bytes.size()), 0,
                         place.document, place.line, static_cast<std::uint16_t>(file.size()),
                         static_cast<std::uint8_t>(shown.size())});
    m_bytes.insert(m_bytes.end(), shown.begin(), shown.end());
    m_bytes.insert(m_bytes.end(), file.begin(), file.end());
    return add_to_index();
}

std::size_t FrequentTexts::next_entries() const {
    const std::size_t capacity = m_entries.capacity();
    return capacity >= FEW ? m_room.texts : std::min<std::size_t>(std::max(2 * capacity, FIRST), m_room.texts);
}

/// At least so many, and never more than there is room for.
std::size_t FrequentTexts::next_bytes(std::size_t bytes) const {
    const std::size_t doubled = std::max(2 * m_bytes.capacity(), FIRST_BYTES);
    return std::max(bytes, std::min<std::size_t>(doubled, m_room.bytes));
}

std::uint32_t FrequentTexts::add_to_index() {
    return m_index.add([this](std::uint32_t number) { return hash_of(m_entries[number].key()); });
}

std::size_t FrequentTexts::bytes() const {
    return m_entries.capacity() * sizeof(Entry) + m_bytes.capacity() + m_index.bytes();
}

std::size_t FrequentTexts::growth(std::string_view text, std::string_view file) const {
    std::size_t growth = m_index.growth();
    if (m_entries.size() == m_entries.capacity())
        growth += next_entries() * sizeof(Entry);
    const std::size_t bytes = m_bytes.size() + beginning(text).size() + kept_file(file).size();
    return growth + (bytes > m_bytes.capacity() ? next_bytes(bytes) : 0);
}

void FrequentTexts::add(const FrequentTexts& other, std::uint32_t document) {
    std::ranges::transform(m_errors, other.m_errors, m_errors.begin(), std::plus<>());
    for (const Entry& entry : other.m_entries) {
        if (entry.count == 0)
            continue;
        std::uint32_t number = find(entry.key());
        if (number == NONE) {
            const std::string_view text = other.text_of(entry), file = other.file_of(entry);
            while (!has_room(text.size() + file.size()))
                make_room();
            number = enter(entry.key(), text, {document, entry.line, file});
        }
        m_entries[number].count += entry.count;
    }
}

void FrequentTexts::make_room() {
    std::array<std::size_t, KINDS> texts{};
    for (const Entry& entry : m_entries)
        ++texts[entry.kind()];
    const auto largest = std::ranges::max_element(texts);
    const auto kind = static_cast<std::uint8_t>(largest - texts.begin());
    m_dropped_from[kind] = std::max<std::uint64_t>(m_dropped_from[kind], *largest);
    drop(kind, middle_count(kind, *largest));
}

std::uint64_t FrequentTexts::middle_count(std::uint8_t kind, std::size_t texts) const {
    std::vector<std::uint64_t> counts;
    counts.reserve(texts);
    for (const Entry& entry : m_entries)
        if (entry.kind() == kind)
            counts.push_back(entry.count);
    const auto middle = counts.begin() + static_cast<std::ptrdiff_t>(counts.size() / 2);
    std::ranges::nth_element(counts, middle);
    return *middle;
}

/// Lowers the counts of a kind; who has none left goes.
void FrequentTexts::drop(std::uint8_t kind, std::uint64_t cut) {
    m_errors[kind] += cut;
    std::size_t bytes = 0;
    auto kept = m_entries.begin();
    for (Entry& entry : m_entries) {
        if (entry.kind() == kind && entry.count <= cut)
            continue;
        entry.count -= entry.kind() == kind ? cut : 0;
        const std::size_t length = std::size_t{entry.shown_length} + entry.file_length;
        std::copy_n(m_bytes.begin() + entry.begin, length, m_bytes.begin() + static_cast<std::ptrdiff_t>(bytes));
        entry.begin = static_cast<std::uint32_t>(bytes);
        bytes += length;
        *kept++ = entry;
    }
    m_entries.erase(kept, m_entries.end());
    m_bytes.resize(bytes);
    m_index.clear();
    for (std::size_t i = 0; i < m_entries.size(); ++i)
        add_to_index();
}

std::vector<FrequentTexts::Text> FrequentTexts::most_frequent(std::uint8_t kind, std::size_t most) const {
    std::vector<std::uint32_t> numbers;
    for (std::uint32_t number = 0; number < m_entries.size(); ++number)
        if (m_entries[number].kind() == kind && m_entries[number].count > 0)
            numbers.push_back(number);
    const auto end = numbers.begin() + static_cast<std::ptrdiff_t>(std::min(most, numbers.size()));
    std::ranges::partial_sort(numbers, end, [this](std::uint32_t one, std::uint32_t other) {
        const std::uint64_t count = m_entries[one].count, other_count = m_entries[other].count;
        return count != other_count ? count > other_count : one < other;
    });
    std::vector<Text> texts;
    for (auto number = numbers.begin(); number != end; ++number) {
        const Entry& entry = m_entries[*number];
        texts.push_back({text_of(entry), entry.length(), entry.count, {entry.document, entry.line, file_of(entry)}});
    }
    return texts;
}

std::uint64_t FrequentTexts::distinct(std::uint8_t kind) const {
    return std::max(rarer(kind, std::numeric_limits<std::uint64_t>::max()), m_dropped_from[kind]);
}

std::uint64_t FrequentTexts::rarer(std::uint8_t kind, std::uint64_t limit) const {
    return static_cast<std::uint64_t>(std::ranges::count_if(
        m_entries, [&](const Entry& entry) { return entry.kind() == kind && entry.count > 0 && entry.count < limit; }));
}

} // namespace zelvor
