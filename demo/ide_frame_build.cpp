// The IDE frame's build and search: SDCC's own build of the sample when it
// is installed, an edited copy of a file standing in for it, and a search
// over the sources.
#include "demo/ide_frame.h"

#include "demo/toolchain/build_log.h"
#include "demo/toolchain/process_run.h"
#include "demo/toolchain/sample_build.h"
#include "host/host_messages.h"

void CIdeFrame::Build()
{
    ShowTab(&panes.build);
    if (!m_useToolchain || !FindOnPath("sdcc")) {
        transcript.Line(m_useToolchain ? "   (no SDCC on the PATH: the build log kept with the project)"
                                       : "   (toolchain not in use: the build log kept with the project)");
        SendLines(panes.build.GetViewHwnd(), m_project.BuildLog());
        return;
    }
    BuildOptions options;
    options.replacedFile = m_project.VariantName();
    options.replacement = m_project.VariantPath();
    const BuildResult result = BuildSample(m_project.Folder(), m_buildFolder, options);
    transcript.Line(std::string("   (SDCC built the sample: ") + (result.success ? "success" : "failed") + ")");
    SendLines(panes.build.GetViewHwnd(), BuildLogRecords(result, UnderProjectFolder(SampleProject::kFolder)));
    // An edited copy's program is not the project's: only a clean build of
    // the project itself is what a debug session loads.
    if (result.success && m_project.VariantName().empty()) m_lastBuild = result;
}

void CIdeFrame::EditWithVariant(const std::string& name, const std::filesystem::path& variant)
{
    if (m_project.UseVariant(name, variant)) ReloadShownFile();
}

void CIdeFrame::RevertEdit()
{
    m_project.Revert();
    ReloadShownFile();
}

// The shown file's text changed under the view: shown anew at the same line,
// its functions listed anew.
void CIdeFrame::ReloadShownFile()
{
    const std::string path = source.Path();
    const int line = source.CaretLine();
    if (path.empty()) return;
    // The function list lets go of its list before it is replaced: it takes
    // a new list only for another file.
    ::SendMessage(panes.functions.GetViewHwnd(), UWM_FUNCLIST_SHOW_FILE, reinterpret_cast<WPARAM>(""), 0);
    source.ShowFile({}, {});
    OpenFile(path, line);
}

void CIdeFrame::Search(std::string_view needle)
{
    ShowTab(&panes.search);
    SendLines(panes.search.GetViewHwnd(), m_project.Search(needle));
}

void CIdeFrame::ShowDebugMessages()
{
    SendLines(panes.debug.GetViewHwnd(), m_project.DebugMessages());
}
