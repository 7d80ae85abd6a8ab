#pragma once

#include "training/ConversionReport.h"
#include "training/CrfTrainingTeiSaxParser.h"
#include "training/TagLexicon.h"
#include "training/token_line.h"

#include <cstddef>
#include <cstdint>
#include <exception>
#include <functional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace zelvor {

/// Ends a conversion before its end: at a bad token, or at a fault where none is wanted.
struct ConversionStopped : std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// Reads the same sentences as its base and writes them as token lines with an empty line behind each, without a list:
/// a sentence is handed on and forgotten as soon as nothing more can belong to it. That is when the next one begins or
/// the document ends, since tokens between sentences belong to the sentence before them. A sentence that holds another
/// loses its own tokens; those of the inner one stand once for each end.
class CrfTokenReader : public CrfTrainingTeiSaxParser {
public:
    struct Place {
        std::string file; ///< of an external entity; empty: the document itself
        long line = 0;    ///< 0: of all of it
    };

    /// What the reader calls; none may be empty unless it says so.
    struct Listener {
        std::function<void(std::string_view lines)> write;
        /// A token without a training line; may be empty. Those of a sentence without an end come when that is clear.
        std::function<void(ConversionReport::Count reason, const Place& place, const std::string& text)> left_out;
        /// A fault of the document itself, for which it counts as failed; must not throw. Of the faults of its XML the
        /// first is told, and the first that ends it; the others mostly follow from these.
        std::function<void(const Place& place, const std::string& message)> fault;
    };

    /// All references must live as long as the reader.
    CrfTokenReader(const TagLexicon& lexicon, const TokenLineFormat& format, ConversionReport& report,
                   Listener listener);

    /// Reads one document, of which the sentences before a fault count; so do those before ConversionStopped, which
    /// leaves these functions as everything does that the listener throws.
    void read_file(const std::string& path);
    void read_standard_input();

    /// Stop at the first fault, analyses that are no JSON or JSON of another shape included.
    void set_strict(bool strict) { m_strict = strict; }

    /// Takes elements and text from the XML library directly, which hands them over as lists of copies otherwise.
    void on_start_document() override;
    void on_error(const Glib::ustring& text) override;
    void on_fatal_error(const Glib::ustring& text) override;

private:
    struct Callbacks;
    struct Sentence {
        std::string lines;
        std::uint64_t tokens = 0;
        std::uint64_t replaced = 0;
        std::uint64_t ends = 0;                          ///< how often it ended: how often it is written
        std::vector<std::pair<Place, std::string>> told; ///< its tokens, for a listener, in case it never ends
    };

    /// Runs the parser, unless there is a fault already, and finishes the document.
    void parse(const std::string& path, std::string fault, const std::function<void()>& run);
    void begin_element(std::string_view name, const unsigned char** attributes);
    void end_element(std::string_view name);
    void begin_sentence();
    void end_sentence();
    void finish_sentence();
    void end_word();
    void end_punctuation();
    void add_token(std::string_view form, std::string_view lemma, std::string_view pos);
    void fault(const Place& place, const std::string& message);
    void leave_out(ConversionReport::Count reason, std::string_view detail = {});
    Place place() const;

    const TagLexicon& m_lexicon;
    const TokenLineFormat& m_format;
    ConversionReport& m_report;
    Listener m_listener;
    bool m_strict = false;
    std::string m_path;
    Sentence m_sentence;
    bool m_is_in_text = false; ///< a sentence of this document has begun
    std::size_t m_depth = 0;   ///< of sentences inside each other
    std::size_t m_faults = 0;  ///< of this document
    bool m_has_error = false;  ///< of its XML, told
    bool m_has_fatal_error = false;
    _xmlParserCtxt* m_current = nullptr; ///< the document's or an entity's parser, within what it calls
    std::exception_ptr m_thrown;         ///< by the listener or for lack of memory, on its way out of the XML library
};

/// "FILE:LINE", or what of it there is; `document` where the place names no file.
std::string to_string(const CrfTokenReader::Place& place, const std::string& document);

} // namespace zelvor
