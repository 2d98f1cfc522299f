#pragma once

#include "platform/Export.h"
#include "platform/drawing/OdDbObjectId.h"
#include "platform/text/OdString.h"
#include "platform/text/Problem.h"

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string_view>
#include <vector>

class OdDbDatabase;

namespace tv::dwg {

enum class XrefStatus : std::uint8_t {
    kResolved,    // the file is there, and when it was read it was a drawing
    kUnloaded,    // taken out by unload()
    kMissing,     // no such file, beside the drawing or in the folders searched
    kNotADrawing, // there, but nothing that can be read as one
    kCircular,    // the drawing itself, or one it is referred to by
    kTooDeep,     // below more drawings than are followed
};

struct ExternalReference {
    OdDbObjectId block;
    OdString name; // the block's
    OdString path; // as the drawing gives it
    bool overlay = false;
    std::filesystem::path file; // empty when it is missing
    XrefStatus status = XrefStatus::kMissing;
    tv::Problem problem; // one sentence for every status but kResolved
};

// Where a file named by a drawing is: at its path, as a path from the drawing's folder, by its name beside the
// drawing, then the same two from each of `folders`. Both kinds of slashes part folders, a drive's letter is
// passed over, letters are compared without regard to case where nothing is spelled exactly so, and of a
// drawing in the binary form nobody here reads (".dwg") the text form (".dxf") is taken when it is there. Empty
// when there is none.
KXPLATFORM_EXPORT std::filesystem::path
findReferencedFile(const std::filesystem::path& drawing, std::wstring_view path,
                   const std::vector<std::filesystem::path>& folders = {});

// The drawings one drawing refers to, read when they are asked for, kept as read-only databases of their own
// and shared by all that refer to the same file. Used on one thread; the drawing must outlive it. What is
// loaded stays as long as this object lives, or one it gave for a drawing below.
class KXPLATFORM_EXPORT ExternalReferences {
  public:
    explicit ExternalReferences(OdDbDatabase& drawing, std::vector<std::filesystem::path> folders = {});
    ~ExternalReferences();
    ExternalReferences(const ExternalReferences&) = delete;
    ExternalReferences& operator=(const ExternalReferences&) = delete;

    OdDbDatabase& drawing() const;
    // In the order of the blocks, by looking for the files without reading them. Overlays of a drawing that is
    // itself referred to aren't part of what it shows and are left out.
    std::vector<ExternalReference> list() const;
    // Of one block; the name is empty when it is no reference.
    ExternalReference reference(OdDbObjectId block) const;

    // The drawing the block refers to, null when it can't be had; reference() then says why.
    std::shared_ptr<OdDbDatabase> load(OdDbObjectId block);
    // What that drawing refers to in turn, null when it can't be had.
    std::shared_ptr<ExternalReferences> below(OdDbObjectId block);
    // Until reload() nothing is shown of it. reload() reads the file again.
    void unload(OdDbObjectId block);
    void reload(OdDbObjectId block);

    // What was wrong with the references asked for so far, here and below, and the first damage of each file
    // read; each once.
    std::vector<tv::Problem> takeProblems();

    // Records that come from a reference carry its name: "plan|Walls" is the layer "Walls" of the drawing
    // behind the block "plan". Null when the record is none of those, or its drawing can't be had.
    OdDbObjectId sourceOf(OdDbObjectId dependentRecord);
    // The way back: the record of this drawing that stands for one of the drawing behind the block. Layer 0 and
    // the linetypes every drawing has stand for themselves.
    OdDbObjectId dependentOf(OdDbObjectId block, OdDbObjectId record);

  private:
    struct Shared;
    struct Impl;
    ExternalReferences(std::unique_ptr<Impl> impl);
    std::unique_ptr<Impl> m_impl;
};

} // namespace tv::dwg
