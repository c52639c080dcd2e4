#include "mof/MofReader.h"

#include "mof/Parser.h"

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <sstream>

using namespace Pegasus;
namespace fs = std::filesystem;

namespace cimserver {
namespace {

constexpr int IncludeDepthLimit = 16;
constexpr std::size_t SizeLimit = std::size_t{16} * 1024 * 1024;

/// Where a file is asked for, so that errors about the file itself point there.
struct Request {
    const Source& source;
    Position at;

    [[noreturn]] void fail(const std::string& what) const { source.fail(at, what); }
};

std::string contentOf(const fs::path& path, const Request& request) {
    std::error_code error;
    const auto size = fs::file_size(path, error);
    if (error) request.fail("cannot read " + path.string() + ": " + error.message());
    if (size > SizeLimit) request.fail(path.string() + " is larger than 16 MiB");
    std::string content(size, '\0');
    std::ifstream file(path, std::ios::binary);
    if (!file.read(content.data(), static_cast<std::streamsize>(size)))
        request.fail("cannot read " + path.string() + ": " + std::strerror(errno));
    return content;
}

class FileReader {
  public:
    explicit FileReader(ClassRepository& repository) : _repository(repository) {}

    void read(const fs::path& path, const CIMNamespaceName& nameSpace, const Request& request,
              int depth) {
        if (depth > IncludeDepthLimit)
            request.fail("files include each other deeper than " +
                         std::to_string(IncludeDepthLimit));
        const std::string content = contentOf(path, request);
        const Source source{path.string(), content};
        const auto include = [&](const std::string& file, Position at,
                                 const CIMNamespaceName& current) {
            read(path.parent_path() / file, current, Request{source, at}, depth + 1);
        };
        Parser(_repository, source, nameSpace, include).parse();
    }

  private:
    ClassRepository& _repository;
};

}  // namespace

void MofReader::readFile(const std::string& path, const CIMNamespaceName& nameSpace) {
    _repository.addNamespace(nameSpace);
    const Source caller{path, {}};
    FileReader(_repository).read(path, nameSpace, Request{caller, {}}, 1);
}

void MofReader::readText(const std::string& text, const std::string& name,
                         const CIMNamespaceName& nameSpace) {
    _repository.addNamespace(nameSpace);
    const Source source{name, text};
    const auto refuse = [&](const std::string&, Position at, const CIMNamespaceName&) {
        source.fail(at, "a text cannot include files");
    };
    if (text.size() > SizeLimit) source.fail({}, "the text is larger than 16 MiB");
    Parser(_repository, source, nameSpace, refuse).parse();
}

}  // namespace cimserver
