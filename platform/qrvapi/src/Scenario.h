#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "Json.h"
#include "Model.h"

namespace qrvapi {

/// Makes the array that a scenario describes. All readers throw control::ScenarioError.
std::unique_ptr<Model> readScenario(std::string_view text, const std::string& source);
std::unique_ptr<Model> readScenarioFile(const std::string& path);

/// Readers of single things, which go into `model`. A thing that is refused leaves nothing behind.
void readSystem(const JsonValue& system, Model& model);
void readUser(const JsonValue& user, Model& model);
void readHost(const JsonValue& host, Model& model);
void readPath(const JsonValue& path, const std::string& hostName, Model& model);
void readVolume(const JsonValue& volume, Model& model);
void readVlun(const JsonValue& vlun, Model& model);

/// Takes out what readPath() would put in; without ports, the initiator on all of them.
void removePath(const JsonValue& path, const std::string& hostName, Model& model);
/// Takes out what readVlun() would put in.
void removeVlun(const JsonValue& vlun, Model& model);

}  // namespace qrvapi
