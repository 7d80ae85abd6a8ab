#pragma once

#include "training/SentenceFormat.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace zelvor::python {

/// The tokens of a document, and which of them are a sentence.
struct GatheredDocument {
    struct Token {
        std::size_t text = 0; ///< the number of its first text: five fields, then names and values of attributes
        std::size_t file = 0;
        long line = 0;
    };
    struct Sentence {
        std::size_t begin, end;
    };

    void add_text(std::string_view piece) {
        text += piece;
        ends.push_back(text.size());
    }
    std::string_view text_at(std::size_t i) const {
        const std::size_t begin = i == 0 ? 0 : ends[i - 1];
        return std::string_view(text).substr(begin, ends[i] - begin);
    }
    std::size_t text_end(std::size_t token) const {
        return token + 1 < tokens.size() ? tokens[token + 1].text : ends.size();
    }

    std::string text;
    std::vector<std::size_t> ends; ///< of the texts
    std::vector<Token> tokens;
    std::vector<Sentence> sentences;
    std::vector<std::string> files; ///< the document is the first
};

/// Gathers the tokens with a form.
class TokenGatherer : public SentenceFormat {
public:
    using Place = std::function<XmlPlace()>;

    /// A format makes it gather those only that would be written in this.
    explicit TokenGatherer(std::unique_ptr<SentenceFormat> format) : m_format(std::move(format)) {}

    void begin_document(const std::string& path, std::size_t /*number*/) override {
        document = std::make_shared<GatheredDocument>();
        document->files.push_back(path);
        m_begin = 0;
    }
    TokenOutcome add(const Token& token) override;
    std::string take_some() override { return {}; }
    std::string_view end() override {
        document->sentences.push_back({m_begin, document->tokens.size()});
        return {};
    }
    void clear() override;

    std::shared_ptr<GatheredDocument> document;
    Place place;

private:
    std::size_t file_of(const std::string& file);

    std::unique_ptr<SentenceFormat> m_format;
    std::size_t m_begin = 0; ///< the first token of the sentence
};

} // namespace zelvor::python
