#ifndef TOLVAD_WIDGETS_XCOMMANDVIEW_H
#define TOLVAD_WIDGETS_XCOMMANDVIEW_H

#include "gui/xCommandTarget.h"

#include <QWidget>

// A view that is a link of the command chain. Commands it doesn't take go to
// the nearest widget above it that is a link too (its card, window), unless a
// next target was set by hand. Each view has a numeric id, by which cards find
// their controls.
class xCommandView : public QWidget, public xCommandTarget {
public:
    explicit xCommandView(QWidget* parent, long id = 0);

    void DoCommand(long command, void* data) override;

    long GetId() const { return viewId; }
    void SetId(long id) { viewId = id; }

    // The first link of the chain among the ancestors of a widget.
    static xCommandTarget* TargetAbove(const QWidget* widget);
    // Sends a command from a widget to the first link at or above it.
    static void Send(QWidget* from, long command, void* data);

protected:
    // Places the view's parts; runs again when the font or the style changes,
    // since the sizes that follow them change too.
    virtual void Layout() {}
    void changeEvent(QEvent* event) override;

private:
    long viewId;
};

#endif
