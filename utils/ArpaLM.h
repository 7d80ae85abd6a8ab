#pragma once

#include "utils/NgramModel.h"

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

namespace log4cpp {
class Category;
}

/// Back-off n-gram models in the ARPA text format, the exchange format of the field's toolkits; see docs/candidates.md.
namespace zelvor {

class NgramTable;
class WordTable;

/// The words of one or several models, numbered. Always holds "<unk>", "<s>" and "</s>".
class ArpaVocab : public Vocab {
public:
    static constexpr unsigned int UNKNOWN = 0;
    static constexpr unsigned int SENTENCE_BEGIN = 1;
    static constexpr unsigned int SENTENCE_END = 2;

    ArpaVocab();
    ~ArpaVocab() override;

    unsigned int get_index(const std::string& word, unsigned int unknown_value = VOCAB_NONE) const override;
    unsigned int find(std::string_view word) const; ///< VOCAB_NONE when it is not there
    unsigned int add(std::string_view word);        ///< its index, old or new
    std::size_t size() const;

private:
    friend class ArpaLM;

    std::unique_ptr<WordTable> m_pwords;
};

class ArpaLM : public LM {
public:
    /// The vocabulary must outlive the model; load() adds words to it and changes no index, so that several models may
    /// share one. Until a file is loaded, every word is unknown. A null category silences the messages of load().
    explicit ArpaLM(ArpaVocab& vocab, log4cpp::Category* pmain_cat = nullptr);
    ~ArpaLM() override;

    /// Reads a model of any order. False, with one error record that names file and line, for what is not ARPA text or
    /// has no end; model and vocabulary are then as they were. Wrong counts are a warning, and so is a log10
    /// probability of up to 1e-4, which counts as 0. "<UNK>" is read as "<unk>" where the model has no 1-gram "<unk>".
    bool load(const std::string& filename);
    const std::string& get_error() const { return m_error; } ///< of the last load() that failed
    /// Of the same: the system's number of what kept the file from being opened or read; 0 where that is in the file.
    int get_system_error() const { return m_system_error; }

    /// A word that the model lacks scores as "<unk>", and where the model lacks that too, -99.
    float sentence_log_prob(const unsigned int* words, TextStats& stats) override;

    std::size_t get_order() const { return m_order; }
    std::size_t get_num_ngrams() const; ///< with the contexts that the file left out

private:
    ArpaVocab& m_vocab;
    log4cpp::Category* m_pmain_cat;
    std::unique_ptr<NgramTable> m_pngrams;
    std::size_t m_order = 1;
    std::string m_error;
    int m_system_error = 0;
};

} // namespace zelvor
