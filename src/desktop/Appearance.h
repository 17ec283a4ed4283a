#pragma once

class QPainter;
class QRect;
class QWidget;

// How the program looks: style, colours and fonts, all in one place.
namespace Appearance {

// For the whole application; called once, before the first window.
void apply();

// The ring inside the edge of what has the focus. Widgets have it from the style; a cell is not one.
void drawFocus(QPainter& painter, const QRect& of);

// For single widgets.
// The colour of a red stamp, such as that of a void bill.
void stamp(QWidget& label);
// The quiet colours of a strip that tells something and offers what to do.
void note(QWidget& strip);
// A transparent background.
void blend(QWidget& field);
// The background of a disabled field if it is read-only, else that of an enabled one.
void setBackground(QWidget& field, bool isReadOnly);
// Makes the field in which a grid is edited differ from the cells around it.
void markAsCellEditor(QWidget& field);

} // namespace Appearance
