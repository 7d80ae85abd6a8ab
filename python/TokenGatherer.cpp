#include "python/TokenGatherer.h"

#include "training/TokenAttributes.h"

namespace zelvor::python {

TokenOutcome TokenGatherer::add(const Token& token) {
    if (token.form.empty())
        return {false, false, ConversionReport::NO_FORM, {}};
    if (token.flaw == ConversionReport::MAPPED_AWAY)
        return {false, false, token.flaw, {}};
    if (m_format) {
        const TokenOutcome written = m_format->add(token);
        m_format->clear();
        if (!written.is_written)
            return written;
    }
    const XmlPlace at = place();
    document->tokens.push_back({document->ends.size(), file_of(at.file), at.line});
    for (const std::string_view text : {token.form, token.lemma, token.pos, token.upos, token.feats})
        document->add_text(text);
    for (std::size_t i = 0; token.attributes && i < token.attributes->size(); ++i) {
        document->add_text(token.attributes->name_at(i));
        document->add_text(token.attributes->value_at(i));
    }
    return {true, false, token.flaw, {}};
}

/// Drops the tokens behind the last sentence that ended.
void TokenGatherer::clear() {
    if (!document)
        return;
    m_begin = document->sentences.empty() ? 0 : document->sentences.back().end;
    if (m_begin == document->tokens.size())
        return;
    document->ends.resize(document->tokens[m_begin].text);
    document->text.resize(document->ends.empty() ? 0 : document->ends.back());
    document->tokens.resize(m_begin);
}

std::size_t TokenGatherer::file_of(const std::string& file) {
    if (file.empty())
        return 0;
    if (document->files.back() != file)
        document->files.push_back(file);
    return document->files.size() - 1;
}

} // namespace zelvor::python
