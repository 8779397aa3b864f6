/** Films and frames of the view, frame by frame, whatever time each takes. */
import { zipSync } from 'fflate';
import { ArrayBufferTarget, Muxer } from 'webm-muxer';

export interface Filming {
    readonly canvas: HTMLCanvasElement;
    readonly frames: number;
    readonly framesPerSecond: number;
    /** Draws one frame, counted from 0. */
    readonly draw: (frame: number) => Promise<void> | void;
    /** `false` ends it. */
    readonly progress: (done: number) => boolean;
}

const CODEC = 'vp09.00.41.08', MUXED = 'V_VP9';
const BITS_PER_PIXEL = 0.12;

/** Breathes, so that the page stays alive. */
const pause = (): Promise<void> => new Promise((resolve) => setTimeout(resolve));

export async function canFilm(width: number, height: number): Promise<boolean> {
    if (typeof VideoEncoder === 'undefined') return false;
    return (await VideoEncoder.isConfigSupported({ codec: CODEC, width, height })).supported === true;
}

/** A .webm film; nothing: it was ended. Canvas sides are even. */
export async function film({ canvas, frames, framesPerSecond, draw, progress }: Filming): Promise<ArrayBuffer | undefined> {
    const { width, height } = canvas;
    const target = new ArrayBufferTarget();
    const muxer = new Muxer({ target, video: { codec: MUXED, width, height, frameRate: framesPerSecond } });
    let failed: Error | undefined;
    const encoder = new VideoEncoder({
        output: (chunk, about) => muxer.addVideoChunk(chunk, about),
        error: (error) => { failed = error; },
    });
    encoder.configure({ codec: CODEC, width, height, framerate: framesPerSecond, bitrate: width * height * framesPerSecond * BITS_PER_PIXEL });
    for (let frame = 0; frame < frames; ++frame) {
        if (!progress(frame)) {
            encoder.close();
            return undefined;
        }
        await draw(frame);
        const picture = new VideoFrame(canvas, { timestamp: (frame * 1e6) / framesPerSecond, duration: 1e6 / framesPerSecond });
        encoder.encode(picture, { keyFrame: frame % 60 === 0 });
        picture.close();
        while (encoder.encodeQueueSize > 4) await pause();
        await pause();
        if (failed !== undefined) throw failed;
    }
    await encoder.flush();
    encoder.close();
    muxer.finalize();
    return target.buffer;
}

export const pictureOf = (canvas: HTMLCanvasElement): Promise<Uint8Array<ArrayBuffer>> =>
    new Promise((resolve, reject) => canvas.toBlob((blob) => {
        if (blob === null) reject(new Error('the browser made no picture'));
        else void blob.arrayBuffer().then((buffer) => resolve(new Uint8Array(buffer)));
    }, 'image/png'));

/** A .zip of PNG files; nothing: it was ended. */
export async function frameFiles(name: string, { canvas, frames, draw, progress }: Filming): Promise<Uint8Array<ArrayBuffer> | undefined> {
    const files: Record<string, [Uint8Array, { level: 0; mtime: Date }]> = {};
    const mtime = new Date(1980, 0, 1);
    for (let frame = 0; frame < frames; ++frame) {
        if (!progress(frame)) return undefined;
        await draw(frame);
        files[`${name}.${String(frame).padStart(6, '0')}.png`] = [await pictureOf(canvas), { level: 0, mtime }];
        await pause();
    }
    return zipSync(files) as Uint8Array<ArrayBuffer>;
}
