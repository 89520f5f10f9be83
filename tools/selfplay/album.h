#pragma once

#include <string>
#include <vector>

namespace selfplay {

/// Saves a picture of the table at each telling moment of play, the first time that it comes.
class Album {
  public:
    /// The folder is made if it isn't there.
    explicit Album(const std::string& folder);

    /// Looks at the game; saves a picture if its moment has come. Throws std::runtime_error if it can't be written.
    void look();

    const std::vector<std::string>& saved() const { return saved_; }  ///< Paths so far.

  private:
    std::string folder_;
    std::vector<std::string> saved_;
    std::vector<bool> seen_;
};

}  // namespace selfplay
