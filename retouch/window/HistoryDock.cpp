#include "window/HistoryDock.h"

#include "pixels/Thumbnail.h"
#include "window/Label.h"

#include <algorithm>
#include <QCoreApplication>
#include <QListWidget>
#include <QScopedValueRollback>
#include <utility>

namespace
{

constexpr QSize PICTURE(48, 32);

/// The photo in the middle of a picture for a step.
QImage PictureOf(CPhoto& photo)
{
    QImage picture(PICTURE, QImage::Format_ARGB32);
    picture.fill(Qt::transparent);
    const QSize sz = QSize(photo.Width(), photo.Height()).scaled(PICTURE, Qt::KeepAspectRatio).expandedTo({1, 1});
    const QPoint ptFirst((PICTURE.width() - sz.width()) / 2, (PICTURE.height() - sz.height()) / 2);
    const PixelView small = {picture.scanLine(ptFirst.y()) + std::ptrdiff_t{4} * ptFirst.x(), sz.width(), sz.height(),
                             picture.bytesPerLine()};
    Reduce(photo.View(), small);
    for (int y = 0; y < sz.height(); ++y)
    {
        for (int x = 0; x < sz.width(); ++x)
            small.Row(y)[4 * x + 3] = 255;
    }
    return picture;
}

} // namespace

CHistoryDock::CHistoryDock(QWidget* pParent, ExecuteCommand execute)
    : QDockWidget(tr("History"), pParent), m_Execute(std::move(execute)), m_pList(new QListWidget(this))
{
    setObjectName("history");
    setFeatures(DockWidgetClosable);
    setAllowedAreas(Qt::RightDockWidgetArea);
    m_pList->setIconSize(PICTURE);
    m_pList->setUniformItemSizes(true);
    m_pList->setMinimumWidth(PICTURE.width() * 4);
    m_pList->setFocusPolicy(Qt::TabFocus); // A click leaves the keys with the photo.
    m_pList->setAccessibleName(tr("History"));
    m_pList->setAccessibleDescription(tr("The steps so far; choosing one goes there"));
    setWidget(m_pList);
    connect(m_pList, &QListWidget::currentRowChanged, this,
            [this](int iRow)
            {
                if (!m_bShowing && iRow >= 0)
                    m_Execute("history " + std::to_string(iRow));
            });
}

void CHistoryDock::Show(const ProgramState& state, CPhoto* pPhoto)
{
    if (std::exchange(m_uPhotos, state.uPhotos) != state.uPhotos)
        m_vPictures.clear();
    // Each state of the photo is shown once when it comes to be.
    if (pPhoto)
        TakePicture(state, *pPhoto);
    ShowSteps(state);
}

void CHistoryDock::TakePicture(const ProgramState& state, CPhoto& photo)
{
    const unsigned uPixels = state.vSteps[static_cast<std::size_t>(state.iStep)].uPixels;
    if (!m_vPictures.contains(uPixels))
        m_vPictures[uPixels] = QIcon(QPixmap::fromImage(PictureOf(photo)));
    m_vPictures.removeIf(
        [&](QMap<unsigned, QIcon>::iterator it)
        { return std::ranges::find(state.vSteps, it.key(), &ProgramState::Step::uPixels) == state.vSteps.end(); });
}

void CHistoryDock::ShowSteps(const ProgramState& state)
{
    const QScopedValueRollback<bool> showing(m_bShowing, true);
    const int nSteps = static_cast<int>(state.vSteps.size());
    while (m_pList->count() > nSteps)
        delete m_pList->takeItem(m_pList->count() - 1);
    while (m_pList->count() < nSteps)
        m_pList->addItem(QString());
    for (int i = 0; i < nSteps; ++i)
    {
        const ProgramState::Step& step = state.vSteps[static_cast<std::size_t>(i)];
        QListWidgetItem& item = *m_pList->item(i);
        item.setText(step.strName.empty() ? (state.bForgot ? tr("(earlier)") : tr("Opened"))
                                          : AsLabel(QCoreApplication::translate("History", step.strName.c_str())));
        item.setIcon(m_vPictures.value(step.uPixels));
        // What was undone is there, but does not count now.
        item.setForeground(palette().color(i > state.iStep ? QPalette::Disabled : QPalette::Active, QPalette::Text));
    }
    m_pList->setCurrentRow(state.iStep);
}
