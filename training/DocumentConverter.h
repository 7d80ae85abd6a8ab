#pragma once

#include "training/ConversionOptions.h"
#include "training/ConversionReport.h"
#include "training/SentenceFormat.h"
#include "training/Sentences.h"

#include <memory>
#include <string>

namespace zelvor {

class Survey;
class TagLexicon;
class TagMap;

/// Converts documents one after the other: reader, tokens, annotation, sentences and format put together. Several
/// converters may work at the same time, each in a thread of its own.
class DocumentConverter {
public:
    /// What is shared by all converters of a run.
    struct Tables {
        const TagLexicon* lexicon = nullptr; ///< null: annotation from attributes
        const TagMap* map = nullptr;         ///< null: tags stay
        std::size_t jobs = 1;                ///< converters that remember analyses within one bound
        bool with_statistics = false;
    };

    /// Options and tables must live as long as this. Without a format it is the one of the options.
    DocumentConverter(const ConversionOptions& options, const Tables& tables,
                      std::unique_ptr<SentenceFormat> format = nullptr);
    ~DocumentConverter();
    DocumentConverter(const DocumentConverter&) = delete;
    DocumentConverter& operator=(const DocumentConverter&) = delete;

    /// Converts the document at a path, or standard input for "-"; `number` is its number among all, from 1. The
    /// sentences before a fault count; so do those before ConversionStopped, which leaves this as everything does that
    /// the sink throws, and std::bad_alloc.
    void convert(const std::string& path, std::size_t number, ConversionSink& sink);

    /// Within the calls of sink and format: where the reader is, as of a token where it ends.
    XmlPlace place() const;

    /// Of the last document, or as far as it is.
    const ConversionReport& report() const;

    /// What is in the last document, or in the first Survey::TOKENS_OF_HINT tokens of it; null where it has written a
    /// token.
    std::unique_ptr<Survey> take_survey();

private:
    struct Stages;

    std::unique_ptr<Stages> m_stages;
};

} // namespace zelvor
