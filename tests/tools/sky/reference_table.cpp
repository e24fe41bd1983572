#include "reference_table.h"

#include <gtest/gtest.h>

#include <fstream>
#include <map>

namespace timetool::sky::testing {

const nlohmann::json& ReferenceRows(const std::string& name) {
    static std::map<std::string, nlohmann::json> loaded;
    auto found = loaded.find(name);
    if (found == loaded.end()) {
        std::ifstream in(std::string(SKY_DATA_DIR) + "/" + name);
        nlohmann::json table = nlohmann::json::parse(in, nullptr, false);
        if (table.is_discarded() || !table.contains("rows")) {
            ADD_FAILURE() << "cannot read reference table " << name;
            table = nlohmann::json{{"rows", nlohmann::json::array()}};
        }
        found = loaded.emplace(name, std::move(table)).first;
    }
    return found->second["rows"];
}

}  // namespace timetool::sky::testing
