// Parameters of the camera. Focal length and sensor width in millimetres, distances in scene units.
#pragma once

enum {
    CAMERA_FOCUS = 500,  // focal length
    CAMERA_ZOOM = 1000,
    CAMERA_PROJECTION = 1001,
    CAMERAOBJECT_APERTURE = 1006,  // sensor width
    CAMERAOBJECT_SHOW = 1007,
    CAMERAOBJECT_FOV = 1008,  // radians
    CAMERAOBJECT_USETARGETOBJECT = 1009,
    CAMERAOBJECT_TARGETDISTANCE = 1010,  // focus distance
    CAMERAOBJECT_FRONTBLUR = 1111,
    CAMERAOBJECT_FRONTSTART = 1112,
    CAMERAOBJECT_FRONTEND = 1113,
    CAMERAOBJECT_REARBLUR = 1114,
    CAMERAOBJECT_REARSTART = 1115,
    CAMERAOBJECT_REAREND = 1116,
    CAMERAOBJECT_TARGETOBJECT = 1130  // link: focus object
};
