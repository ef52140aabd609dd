// The headless tour's record: numbered screenshots of the whole frame, each
// with one line saying what it shows, and an index a reader takes in at a
// glance (tour.md).
#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "demo/host_transcript.h"
#include "platform/core/wnd.h"

class TourRecord {
public:
    TourRecord(CWnd& frame, HostTranscript& transcript, std::filesystem::path folder);

    // Captures the frame as "NN-name.png" and notes the line (UTF-8) for the index.
    bool Shot(const std::string& name, const std::string& caption);
    // Captures the screen over the frame (open menus included) the same way.
    bool ScreenShot(const std::string& name, const std::string& caption);
    // Writes tour.md and transcript.txt; false when a file could not be written.
    bool Finish() const;

    const std::filesystem::path& Folder() const { return m_folder; }
    bool AllShotsWritten() const { return m_allWritten; }

private:
    bool Record(const std::string& name, const std::string& caption, const std::function<bool(const char*)>& capture);

    struct Entry {
        std::string file;
        std::string caption;
    };

    CWnd& m_frame;
    HostTranscript& m_transcript;
    std::filesystem::path m_folder;
    std::vector<Entry> m_entries;
    bool m_allWritten = true;
};
