#include <cstdlib>
#include <filesystem>
#include <memory>
#include <stdexcept>

#include "platform/desktop.h"
#include "platform/sim/state.h"

namespace sim {
namespace {

/// An empty folder that goes, with all that was put into it, when it isn't needed any more.
class OwnFolder {
  public:
    OwnFolder() : path_(std::filesystem::temp_directory_path() / "velmora-XXXXXX") {
        if (::mkdtemp(path_.data()) == nullptr) throw std::runtime_error("no folder can be made for the program");
    }
    ~OwnFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    OwnFolder(const OwnFolder&) = delete;
    OwnFolder& operator=(const OwnFolder&) = delete;

    const std::string& path() const { return path_; }

  private:
    std::string path_;
};

std::unique_ptr<OwnFolder>& ownFolder() {
    static std::unique_ptr<OwnFolder> folder;
    return folder;
}

}  // namespace

void emptyProgramFolder() { ownFolder().reset(); }

}  // namespace sim

std::string platform::programFile(const std::string& name) {
    if (!sim::ownFolder()) sim::ownFolder() = std::make_unique<sim::OwnFolder>();
    return sim::ownFolder()->path() + "/" + name;
}
