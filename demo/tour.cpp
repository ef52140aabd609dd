#include "demo/tour.h"

#include <cstdio>
#include <fstream>

#include "platform/core/paint.h"

TourRecord::TourRecord(CWnd& frame, HostTranscript& transcript, std::filesystem::path folder)
    : m_frame(frame), m_transcript(transcript), m_folder(std::move(folder))
{
}

bool TourRecord::Shot(const std::string& name, const std::string& caption)
{
    return Record(name, caption, [this](const char* path) { return Paint::CaptureWindow(m_frame.GetSafeHwnd(), path); });
}

bool TourRecord::ScreenShot(const std::string& name, const std::string& caption)
{
    return Record(name, caption, [this](const char* path) {
        CRect area;
        m_frame.GetWindowRect(&area);
        return Paint::CaptureScreen(area, path);
    });
}

bool TourRecord::Record(const std::string& name, const std::string& caption, const std::function<bool(const char*)>& capture)
{
    char number[8];
    std::snprintf(number, sizeof number, "%02zu-", m_entries.size() + 1);
    const std::string file = number + name + ".png";
    const bool written = capture((m_folder / file).c_str());
    m_entries.push_back({file, caption});
    m_transcript.Line("== screenshot " + file + ": " + caption);
    m_allWritten = m_allWritten && written;
    return written;
}

bool TourRecord::Finish() const
{
    std::ofstream index(m_folder / "tour.md");
    index << "# The dockpanes demo tour\n\n"
          << "A scripted session in the demo IDE, driven only through simulated input and host messages.\n"
          << "Every message between the host and the library is in [transcript.txt](transcript.txt).\n\n";
    for (const Entry& entry : m_entries) index << "- [" << entry.file << "](" << entry.file << "): " << entry.caption << "\n";
    std::ofstream transcript(m_folder / "transcript.txt");
    transcript << m_transcript.Text();
    return index.good() && transcript.good();
}
