#ifndef TREMOLUXCAM_H__
#define TREMOLUXCAM_H__

enum
{
	// The tag adds its parameters itself when the panel is built.
	TREMOLUXCAM_NO_PARAMETERS = 10000
};

#endif
