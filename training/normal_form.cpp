#include "training/normal_form.h"

#include <glib.h>

#include <algorithm>
#include <memory>

namespace zelvor {

namespace {

/// The first byte of U+0300. No character before it changes, or composes with another before it.
constexpr unsigned char FIRST_COMBINING = 0xCC;

} // namespace

void to_normal_form(std::string& text) {
    if (std::ranges::all_of(text, [](char c) { return static_cast<unsigned char>(c) < FIRST_COMBINING; }) ||
        text.find('\0') != std::string::npos) // where normalisation would end
        return;
    const std::unique_ptr<char, void (*)(void*)> normal(
        g_utf8_normalize(text.data(), static_cast<gssize>(text.size()), G_NORMALIZE_DEFAULT_COMPOSE), g_free);
    if (normal)
        text = normal.get();
}

} // namespace zelvor
