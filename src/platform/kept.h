// Everything that is kept between starts in the user's state (see deskState.h), one row each: type, key, default and
// purpose. The keys are in the users' files: a key that changes loses what was kept.
#pragma once

#include <QByteArray>
#include <QPoint>
#include <QSize>
#include <QStringList>
#include <QVariantMap>
#include <type_traits>

namespace platform {

// The default of a text, an array, a list or a map: an empty one.
struct EmptyDefault {};
template <class Value>
using Default = std::conditional_t<std::is_trivially_copyable_v<Value>, Value, EmptyDefault>;

// A value that is kept once.
template <class Value>
struct Kept {
    QStringView key;
    Default<Value> fallback = {};
};

// A value that is kept for each window; the object name of the window and "/" precede the key.
template <class Value>
struct KeptByWindow {
    QStringView key;
    Default<Value> fallback = {};
};

// A folder of the state.
struct KeptFolder {
    QStringView name;
};

namespace kept {

inline constexpr Kept<QStringList> recentFiles{u"files/recent"};         // absolute paths, newest first
inline constexpr Kept<QString> lastFolder{u"files/folder"};              // of the file chosen last in a dialog
inline constexpr Kept<QByteArray> workspaceAcross{u"frmDaoru/across"};   // QSplitter::saveState(), as all splitters
inline constexpr Kept<QByteArray> workspaceDown{u"frmDaoru/down"};       // fields and whole text
inline constexpr Kept<QByteArray> workspaceUnder{u"frmDaoru/under"};     // both of these and the remarks
inline constexpr Kept<bool> wholeTextShown{u"frmDaoru/whole", false};    // the button "全文"
inline constexpr Kept<QStringList> silencedRules{u"proof/silenced"};     // tag, tab, key of a rule
inline constexpr Kept<bool> rowsMarked{u"proof/marks", true};            // marks next to the rows of the field grid
inline constexpr Kept<QByteArray> handbookAcross{u"frmHandbook/across"}; // contents and page
inline constexpr Kept<int> lookChoice{u"look/choice", 0};                // a widgets::Appearance::Choice
inline constexpr Kept<int> lookOfDesktop{u"look/desktop", 0}; // the last answer of the desktop: 0 none, 1 light, 2 dark
inline constexpr Kept<QStringList> checksOff{u"schema/off"};  // names of checks that are switched off
inline constexpr Kept<QStringList> chosenTargets{u"targets/chosen"}; // names of the ticked targets
inline constexpr Kept<QString> takenFolder{u"targets/folder"};       // of the file of taken records
inline constexpr Kept<int> batchPause{u"targets/pause", 200};        // milliseconds between two requests
inline constexpr Kept<int> batchAtOnce{u"targets/once", 1};          // connections to one target

inline constexpr KeptByWindow<QByteArray> geometry{u"geometry"}; // QWidget::saveGeometry() of a top-level window
inline constexpr KeptByWindow<QSize> listSize{u"size"};          // of a list window, neither maximised nor minimised
inline constexpr KeptByWindow<QPoint> listPosition{u"position"}; // likewise
inline constexpr KeptByWindow<bool> listMaximised{u"maximised", false};
inline constexpr KeptByWindow<QVariantMap> columns{u"columns"}; // widths set by the user, by column number

inline constexpr KeptFolder drafts{u"drafts"};   // changed records that were not imported
inline constexpr KeptFolder tasks{u"tasks"};     // of the user, one file each
inline constexpr KeptFolder targets{u"targets"}; // the user's list and the journal of the last batch

} // namespace kept
} // namespace platform
