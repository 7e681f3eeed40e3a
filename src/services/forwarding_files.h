// Files that pass every call on to other files.
#pragma once

#include "services/files.h"

namespace tamlo {

/// A decorator: derived classes are notified of each call and may change its paths.
class ForwardingFiles : public Files {
  public:
    /// `real` must outlive this object.
    explicit ForwardingFiles(Files& real) : real_(real) {}

    std::string FindFile(const std::string& path) override {
        return Real().FindFile(PathFor(path));
    }
    std::string FindFolder(const std::string& path) override {
        return Real().FindFolder(PathFor(path));
    }
    std::vector<std::string> List(const std::string& folder, std::string_view pattern) override {
        return Real().List(PathFor(folder), pattern);
    }
    std::optional<std::uint64_t> Length(const std::string& path) override {
        return Real().Length(PathFor(path));
    }
    ReadResult Read(const std::string& path) override { return Real().Read(PathFor(path)); }
    bool Replace(const std::string& path, std::string_view bytes) override {
        return Real().Replace(PathFor(path), bytes);
    }
    bool Append(const std::string& path, std::string_view bytes) override {
        return Real().Append(PathFor(path), bytes);
    }
    bool Delete(const std::string& path) override { return Real().Delete(PathFor(path)); }
    bool Rename(const std::string& from, const std::string& to) override {
        return Real().Rename(PathFor(from), PathFor(to));
    }
    bool MakeFolder(const std::string& path) override { return Real().MakeFolder(PathFor(path)); }
    std::string CurrentDirectory() override { return Real().CurrentDirectory(); }

  protected:
    /// Called before each call is passed on.
    virtual void Asked() = 0;
    /// The path by which the real files know `path`.
    virtual std::string PathFor(const std::string& path) { return path; }

  private:
    Files& Real() {
        Asked();
        return real_;
    }

    Files& real_;
};

}  // namespace tamlo
