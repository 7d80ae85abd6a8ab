#include "training/tei_inputs.h"

#include "utils/common_utils/files.h"

#include <algorithm>
#include <cerrno>
#include <cstring>

#include <sys/stat.h>

namespace zelvor {

namespace {

class Walk {
public:
    Walk(bool with_hidden, const std::function<void(const std::string&, int)>& fault)
        : m_with_hidden(with_hidden), m_fault(fault) {}

    void add_input(std::string path) {
        struct stat status {};
        if (path == "-" || stat(path.c_str(), &status) != 0 || !S_ISDIR(status.st_mode)) {
            found.documents.push_back(std::move(path));
            return;
        }
        while (path.size() > 1 && path.ends_with('/'))
            path.pop_back();
        add_folder(path);
    }

    TeiInputs found;

private:
    /// Only one folder is open at a time, so that no depth uses up the descriptors.
    void add_folder(const std::string& folder) {
        for (const std::string& name : names_in(folder))
            if (name != "." && name != ".." && (m_with_hidden || !name.starts_with('.')))
                add_entry((folder == "/" ? "" : folder) + "/" + name);
    }

    std::vector<std::string> names_in(const std::string& folder) {
        std::vector<std::string> names;
        const FolderErrors errors = for_each_name(folder, [&](const std::string& name) { names.push_back(name); });
        if (const int error = errors.opening ? errors.opening : errors.reading; error != 0)
            m_fault(folder, error);
        return names;
    }

    void add_entry(const std::string& path) {
        struct stat status {};
        if (lstat(path.c_str(), &status) != 0)
            m_fault(path, errno);
        else if (S_ISDIR(status.st_mode))
            add_folder(path);
        // a link to nowhere is kept, so that its fault is told
        else if (stat(path.c_str(), &status) != 0 || S_ISREG(status.st_mode))
            add_file(path);
    }

    void add_file(const std::string& path) {
        if (is_tei_name(path))
            found.documents.push_back(path);
        else
            ++found.passed_over;
    }

    bool m_with_hidden;
    const std::function<void(const std::string&, int)>& m_fault;
};

} // namespace

std::string told_passed_over(std::size_t files) {
    return files == 0 ? "" : " (" + std::to_string(files) + " passed over by name)";
}

TeiInputs find_documents(const std::vector<std::string>& inputs, bool with_hidden,
                         const std::function<void(const std::string& folder, int error)>& fault) {
    Walk walk(with_hidden, fault);
    for (const std::string& input : inputs)
        walk.add_input(input);
    std::vector<std::string>& documents = walk.found.documents;
    std::ranges::sort(documents);
    documents.erase(std::unique(documents.begin(), documents.end()), documents.end());
    return std::move(walk.found);
}

} // namespace zelvor
