#include "MakeCharacter.h"
#include "PictureBook.h"

namespace making {

namespace {

constexpr std::array MouthShapes{nibbin::MouthShape::Closed, nibbin::MouthShape::Wide1, nibbin::MouthShape::Wide2,
                                 nibbin::MouthShape::Wide3,  nibbin::MouthShape::Wide4, nibbin::MouthShape::Medium,
                                 nibbin::MouthShape::Narrow};
static_assert(MouthShapes.size() == static_cast<std::size_t>(engine::MouthCount));

// The mouths are cut out of whole drawings, so whatever stands before the mouth stays before it.
std::vector<engine::MouthOverlay> MouthsOf(const nibbin::Pose& pose, CPictureBook& book)
{
    std::vector<drawing::Picture> faces{book.Draw(pose)};
    for (const nibbin::MouthShape shape : MouthShapes) {
        nibbin::Pose speaking = pose;
        speaking.mouth = shape;
        faces.push_back(book.Draw(speaking));
    }
    const engine::Rect box = DifferenceOf(faces);
    std::vector<engine::MouthOverlay> mouths;
    for (std::size_t i = 0; i < MouthShapes.size(); ++i)
        mouths.push_back({static_cast<engine::Mouth>(i), false, book.Keep(faces[i + 1], box)});
    return mouths;
}

engine::Frame FrameOf(const motion::Step& step, CPictureBook& book)
{
    engine::Frame frame;
    frame.pictures = book.Place(step.pose);
    frame.duration = step.duration;
    frame.exitFrame = step.exit;
    frame.branches = step.branches;
    if (step.speaks)
        frame.mouths = MouthsOf(step.pose, book);
    return frame;
}

engine::Animation AnimationOf(const motion::Scripted& script, CPictureBook& book)
{
    engine::Animation animation{script.name, script.transition, script.returnAnimation, {}};
    for (const motion::Step& step : script.steps)
        animation.frames.push_back(FrameOf(step, book));
    return animation;
}

}

engine::Character MakeCharacter(const std::vector<motion::Scripted>& scripts)
{
    engine::Character character = WithoutPictures();
    CPictureBook book;
    for (const motion::Scripted& script : scripts)
        for (const motion::Step& step : script.steps)
            book.Expect(step.pose);
    for (const motion::Scripted& script : scripts)
        character.animations.push_back(AnimationOf(script, book));
    book.Finish(character);
    return character;
}

}
