#include "app/Workstation.h"

#include "acquisition/StartUp.h"

namespace ecg {
namespace {

// The name window comes before the language is set; there only a stored 2 is English, and its messages follow it.
bool SpeaksChinese(const SharedState& state)
{
    constexpr Byte englishNames = 2;
    return state.DoctorName.empty() ? state.SysInfo.Language != englishNames : state.Chinese();
}

// The data folder has its place from the first moment on.
SharedState StateIn(const std::filesystem::path& programFolder)
{
    SharedState state;
    state.Folders = OpenDataFolder(programFolder);
    return state;
}

}  // namespace

Workstation::Workstation(const std::filesystem::path& programFolder, const QString& pdfFile)
    : state_(StateIn(programFolder)),
      patients_(state_, files_, clock_),
      writer_(state_),
      pictures_(programFolder / "pictures"),
      port_(programFolder),
      printer_(pictures_, pdfFile),
      messages_([this] { return SpeaksChinese(state_); }),
      windows_(state_, patients_, messages_, printer_, clock_, pictures_),
      main_(state_, pictures_, clock_),
      monitor_(state_, port_, clock_, messages_, main_),
      examination_(state_, monitor_, main_, windows_, messages_, clock_, patients_, writer_),
      keys_(state_, monitor_, examination_, main_, windows_, messages_)
{
    main_.Connect(monitor_, keys_);
}

bool Workstation::StartUp()
{
    const bool started = ecg::StartUp(state_, printer_, windows_, monitor_, main_);
    windows_.SetParent(&main_);
    return started;
}

}  // namespace ecg
