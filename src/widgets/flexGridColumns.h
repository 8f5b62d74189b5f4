// The widths of a grid's columns. The program sets them in twips, and they grow with a wider font; a width that the
// user has set by dragging replaces them. One column may take the width that the others leave.
#pragma once

#include <QMap>
#include <vector>

class QTableView;

namespace widgets {

class FlexGridColumns {
public:
    // `view` must have its model and outlive the object. With headings, no column is narrower than its heading.
    FlexGridColumns(QTableView &view, bool headings);

    // Twips refer to the font that the windows were designed with. 0 hides the column.
    void setTwips(int column, int twips);
    int twips(int column) const;
    int toTwips(int pixels) const; // at the resolution of the screen and with the font of the grid, rounded
    int toPixels(int twips) const;
    void setStretched(int column);

    // Call stretch() after the width of the view or of a column has changed, fit() after the heading or the font has.
    void stretch();
    void fit(int column);
    void fitAll();

    // The widths set by the user, in pixels, by column.
    QMap<int, int> drawn() const;
    void setDrawn(const QMap<int, int> &widths);

private:
    struct Width {
        int twips = -1;
        int pixels = -1; // the resulting width; any other width was set by the user
    };

    int count() const { return int(m_widths.size()); }
    bool isDrawn(int column) const; // the user set the width of the column
    double fontScale() const;

    QTableView &m_view;
    bool m_headings;
    std::vector<Width> m_widths; // as set by the program
    int m_stretched = -1;
};

} // namespace widgets
