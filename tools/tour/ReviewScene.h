// What the scenes of the review share: who plays, in which program and language, and the window.
#pragma once

#include "app/Workstation.h"
#include "printing/PrintQueue.h"
#include "tour/TourDriver.h"

namespace ecg {

struct ReviewScene {
    static constexpr int SettleMs = 100;  // for scroll bars that come and go

    TourDriver& Tour;
    Workstation& Program;
    PrintQueue& Queue;
    QString Language;  // marks the pictures
    QWidget& Window;   // frmxECG

    SharedState& State() const { return Program.State(); }

    // The traces as they stand on the screen.
    QImage Traces() const
    {
        Tour.Wait(SettleMs);
        return Tour.Find(Window, "PicFore").grab().toImage();
    }

    // The window, named by what it shows.
    void Picture(const QString& name) const
    {
        Tour.Wait(SettleMs);
        Tour.Picture(Window, "review-" + name + "-" + Language);
    }

    // Clicks a key that opens a menu, and the entries of `path` in it; with `picture` the menu is pictured too.
    void Choose(const QString& key, const QStringList& path, const QString& picture = {}) const
    {
        Tour.Choose([this, &key] { Tour.Click(Window, key); }, path,
                    picture.isEmpty() ? picture : "review-menu-" + picture + "-" + Language);
    }
};

// ReviewTour.cpp: what the window can show.
void PlayForms(const ReviewScene& scene);
void PlayModes(const ReviewScene& scene);

// ReviewWork.cpp: work on the traces; the jumps need a record longer than a view.
void PlayDisplay(const ReviewScene& scene);
void PlayRule(const ReviewScene& scene);
void PlayFlags(const ReviewScene& scene);
void PlayJumps(const ReviewScene& scene);

// ReviewPages.cpp: pages of the printer become pictures of the tour.
void PlayPrinting(const ReviewScene& scene);
void PlayVariabilityPage(const ReviewScene& scene);
void PlayExport(const ReviewScene& scene);

}  // namespace ecg
