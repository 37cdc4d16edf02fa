#pragma once
// How an engine stage reports its progress: a range, then values in it. The
// repair thread turns them into its signals; tests pass nothing or a recorder.

#include <QtGlobal>

class StageProgress
{
public:
    virtual ~StageProgress() = default;
    virtual void setRange(qint64) {}
    virtual void setValue(qint64) {}
};
