#pragma once

class QWidget;

// How the program looks: style, colours and fonts, all in one place.
namespace Appearance {

// For the whole application; called once, before the first window.
void apply();

// For single widgets.
// Colour of a red stamp, such as the one of a void bill.
void stamp(QWidget& label);
// A field without a background of its own.
void blend(QWidget& field);
// A field that is only read has the background of a disabled one, another that of a field to type in.
void ground(QWidget& field, bool isReadOnly);
// The field that a grid is edited in stands out from the cells around it.
void markAsCellEditor(QWidget& field);

} // namespace Appearance
