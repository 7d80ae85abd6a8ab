#include "tools/tei_inputs.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <memory>

#include <dirent.h>
#include <sys/stat.h>

namespace zelvor {

namespace {

class Walk {
public:
    Walk(bool with_hidden, const std::function<void(const std::string&, const std::string&)>& fault)
        : m_with_hidden(with_hidden), m_fault(fault) {}

    void add_input(std::string path) {
        struct stat status {};
        if (path == "-" || stat(path.c_str(), &status) != 0 || !S_ISDIR(status.st_mode)) {
            documents.push_back(std::move(path));
            return;
        }
        while (path.size() > 1 && path.ends_with('/'))
            path.pop_back();
        add_folder(path);
    }

    std::vector<std::string> documents;

private:
    /// Only one folder is open at a time, so that no depth uses up the descriptors.
    void add_folder(const std::string& folder) {
        for (const std::string& name : names_in(folder))
            if (name != "." && name != ".." && (m_with_hidden || !name.starts_with('.')))
                add_entry((folder == "/" ? "" : folder) + "/" + name);
    }

    std::vector<std::string> names_in(const std::string& folder) {
        std::vector<std::string> names;
        const std::unique_ptr<DIR, int (*)(DIR*)> directory(opendir(folder.c_str()), closedir);
        const dirent* entry = nullptr;
        while (directory && (errno = 0, entry = readdir(directory.get())))
            names.emplace_back(entry->d_name);
        if (errno != 0)
            m_fault(folder, std::strerror(errno));
        return names;
    }

    void add_entry(const std::string& path) {
        struct stat status {};
        if (lstat(path.c_str(), &status) != 0)
            m_fault(path, std::strerror(errno));
        else if (S_ISDIR(status.st_mode))
            add_folder(path);
        // a link to nowhere is kept, so that its fault is told
        else if (is_tei_name(path) && (stat(path.c_str(), &status) != 0 || S_ISREG(status.st_mode)))
            documents.push_back(path);
    }

    bool m_with_hidden;
    const std::function<void(const std::string&, const std::string&)>& m_fault;
};

} // namespace

std::vector<std::string>
find_documents(const std::vector<std::string>& inputs, bool with_hidden,
               const std::function<void(const std::string& folder, const std::string& message)>& fault) {
    Walk walk(with_hidden, fault);
    for (const std::string& input : inputs)
        walk.add_input(input);
    std::ranges::sort(walk.documents);
    walk.documents.erase(std::unique(walk.documents.begin(), walk.documents.end()), walk.documents.end());
    return std::move(walk.documents);
}

} // namespace zelvor
