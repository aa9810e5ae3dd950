#pragma once

#include "platform/base/Export.h"
#include "platform/files/AtomicWriter.h"
#include "platform/versions/VersionFolder.h"

#include <optional>
#include <string_view>
#include <vector>

namespace platform {

/// Keeps the versions of a document: the one place that decides it for all writers.
///
/// A version has a name in the folder before it becomes the document, and keeps it when it is replaced. So
/// another program can replace the document, and nothing that was written here is lost. A version that
/// another program wrote gets its name when it is replaced or met here (keepCurrent).
///
/// Keeping is never a reason for a write to fail: every error is dropped, and then a version is missing. A
/// power cut may lose the versions of the last moment, since nothing is synchronised for them. Nothing is
/// locked or announced.
class WARDLOCK_API VersionKeeper : public ReplacementObserver {
public:
    /// `old` is the content that the writer read and replaces; none where that was not a document. `content`
    /// is what it writes. Both are read here only.
    VersionKeeper(FileSystem& files, const Versions& versions, std::optional<std::string_view> old,
                  std::string_view content);

    void willReplace(const Replacement& replacement) override;
    void didNotReplace() override;
    void didReplace(const std::string& path) override;
    void willRemoveLeftover(const std::string& path, const FileStatus& leftover) override;

    /// Keeps the version that is the document now, unless it is the youngest one anyway. Its content is `old`
    /// of the constructor.
    void keepCurrent(const std::string& path);

private:
    bool prepare(VersionFolder& folder);
    void findYoungest();
    void addOld(VersionFolder& folder, const FileStatus& old);
    bool add(VersionFolder& folder, const std::string& file, const VersionOrigin& origin,
             std::uint64_t digest);

    FileSystem& files_;
    Versions versions_;
    /// Digests; not known where no version is kept.
    std::optional<std::uint64_t> old_;
    std::uint64_t content_ = 0;
    /// What is in the folder, as far as this writer knows, and the youngest version there.
    std::vector<std::string> names_;
    std::optional<Version> youngest_;
    /// The name of what is written now.
    std::optional<VersionFolder> folder_;
    std::optional<Version> added_;
    /// The last one that did not become the document.
    std::optional<Version> withdrawn_;
};

} // namespace platform
