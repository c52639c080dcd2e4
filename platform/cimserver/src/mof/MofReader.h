// Reads MOF files into a class repository.
#pragma once

#include "broker/ClassRepository.h"

#include <stdexcept>
#include <string>

namespace cimserver {

/// A MOF text that cannot be taken; what() begins with "file:line:column: ".
class MofError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// Reads MOF as OpenPegasus's compiler takes it: qualifier declarations, classes (associations with
/// references, methods with parameters, value maps, embedded instances), `instance of`, and the
/// pragmas include (relative to the including file) and namespace. Nesting and file size are
/// bounded.
class MofReader {
  public:
    explicit MofReader(ClassRepository& repository) : _repository(repository) {}

    /// Reads a file into `nameSpace`, which is created when it is missing. Throws MofError.
    void readFile(const std::string& path, const Pegasus::CIMNamespaceName& nameSpace);

    /// Reads a text; `name` stands for the file in error messages, include pragmas are refused.
    void readText(const std::string& text, const std::string& name,
                  const Pegasus::CIMNamespaceName& nameSpace);

  private:
    ClassRepository& _repository;
};

}  // namespace cimserver
