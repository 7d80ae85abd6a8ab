#include "tools/TaggerFormatConverter.h"

#include "training/CrfTrainingTeiSaxParser.h"
#include "training/tei_inputs.h"
#include "utils/LexicalEntry.h"
#include "utils/common_utils/entity_guard.h"
#include "utils/common_utils/files.h"
#include "utils/common_utils/text.h"
#include "utils/logging_utils.h"

#include <glibmm.h>
#include <log4cpp/Category.hh>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <fstream>
#include <iostream>
#include <stdexcept>

#include <sys/stat.h>

namespace zelvor {

namespace {

using LexiconById = std::map<int, LexicalEntry*>;

/// Reads what the line holds: of a line with too few fields, those before the missing one.
void read_entry(LexicalEntry& entry, const std::string& line, const std::string& filename, std::size_t line_number) {
    try {
        entry.parse_latin(line);
    } catch (const std::out_of_range&) {
        TaggerFormatConverter::m_main_cat.error(filename + ":" + std::to_string(line_number) +
                                                ": a lexicon line needs at least 22 fields: " + get_substr(line, 200));
    }
}

/// The first entry of each word-form id. Entries stay allocated for the whole run, those of comment lines included.
LexiconById load_lexicon(const std::string& filename) {
    LexiconById lexicon;
    std::ifstream file(filename, std::ios::in);
    std::size_t line_number = 0;
    for (std::string line; std::getline(file, line);) {
        ++line_number;
        auto* const entry = new LexicalEntry();
        if (vstarts_with(line, "//"))
            continue;
        read_entry(*entry, line, filename, line_number);
        // Ids usually ascend, so that the new place is at the end.
        lexicon.emplace_hint(lexicon.end(), std::atoi(entry->get_word_form_id().c_str()), entry);
    }
    return lexicon;
}

/// Why a path cannot be parsed; empty when it is a regular file, or a link to one.
std::string why_not_parsed(const std::string& path) {
    struct stat status {};
    if (stat(path.c_str(), &status) != 0)
        return std::strerror(errno);
    return S_ISREG(status.st_mode) ? "" : "not a regular file";
}

/// Leaves the document's sentences in the parser; of a faulty document, those before the fault.
void parse_document(const std::string& path, const std::string& fault, CrfTrainingTeiSaxParser& parser) {
    // The parser starts no document for a file that it cannot open: the sentences of the last one must not stay.
    parser.get_entry_representations()->clear();
    std::string message = fault;
    if (fault.empty()) {
        try {
            const EntityGuard guard(path, &TaggerFormatConverter::m_main_cat);
            parser.parse_file(path);
            guard.rethrow();
        } catch (const std::exception& error) {
            message = error.what();
        } catch (const Glib::Exception& error) {
            message = error.what().raw();
        } catch (...) {
            message = "unknown error";
        }
    }
    if (!message.empty())
        TaggerFormatConverter::m_main_cat.error(path + ": " + message);
}

/// Token lines to standard output, flushed before each sentence's separator goes to out.
void write_sentences(const std::vector<std::vector<LexicalEntry*>*>& sentences, std::ostream& out) {
    std::string lines;
    for (const std::vector<LexicalEntry*>* const sentence : sentences) {
        if (sentence) {
            lines.clear();
            for (const LexicalEntry* const entry : *sentence) {
                const std::string pos = entry->get_pos(); // first: an entry may change its tag when asked for its form
                lines.append(entry->get_word_form()).append(" ").append(pos).append("\n");
            }
            std::cout << lines << std::flush;
        }
        out << std::endl;
    }
}

} // namespace

log4cpp::Category& TaggerFormatConverter::m_main_cat =
    *setup_logger("logs/tagger_format_converter.log", "TAGGER_FORMAT_CONVERTER");

TaggerFormatConverter::TaggerFormatConverter() = default;

TaggerFormatConverter::~TaggerFormatConverter() = default;

void TaggerFormatConverter::convert_format(const TaggerFormatConverterParams& params) {
    const LexiconById lexicon = load_lexicon(params.lexicon_filename);
    CrfTrainingTeiSaxParser parser(&m_main_cat, &lexicon);
    parser.set_substitute_entities(true);
    std::ofstream out(params.output_filename, std::ios::out | std::ios::trunc);
    create_model_data_file(params.input_directory, out, parser);
    if (!std::cout.flush())
        m_main_cat.error("standard output: lines are lost");
    if (out.is_open() && !out.flush())
        m_main_cat.error(params.output_filename + ": lines are lost");
}

void TaggerFormatConverter::create_model_data_file(std::string path, std::ostream& out,
                                                   CrfTrainingTeiSaxParser& parser) {
    struct stat status {};
    const bool exists = lstat(path.c_str(), &status) == 0;
    if (!exists || !S_ISDIR(status.st_mode)) {
        const std::string fault = exists ? why_not_parsed(path) : std::strerror(errno);
        std::cout << "input filename: " << path << std::endl;
        if (!is_tei_name(path))
            return;
        std::cout << "input filename 2 : " << path << std::endl;
        parse_document(path, fault, parser);
        std::cout << "input filename 3 : " << path << std::endl;
        write_sentences(*parser.get_entry_representations(), out);
        return;
    }
    const FolderErrors errors = for_each_name_or_print(path, [&](const std::string& name) {
        if (name != ".." && name != ".")
            create_model_data_file(path + "/" + name, out, parser);
    });
    if (errors.reading != 0)
        m_main_cat.error(path + ": " + std::strerror(errors.reading));
}

} // namespace zelvor
