#include "model/AnimationProperties.h"

AnimationProperties::AnimationProperties(QObject *parent)
    : QObject(parent)
{
}
