/** In, out and fades as handles of one bar. */
import type { JSX } from 'preact';
import { studio } from '../app.ts';
import { withRange } from '../model/look.ts';
import type { Look } from '../model/look.ts';
import { words } from '../words.ts';
import { arrowStep, frameAt, placeOf } from './lane.tsx';

type HandleName = 'from' | 'until' | 'fadeIn' | 'fadeOut';

/** The frames at which the bar begins, is full, begins to fade and ends. */
export function cornersOf({ range }: Look, first: number, last: number): Record<HandleName, number> {
    const from = range.from ?? first, until = range.until ?? last;
    return { from, until, fadeIn: from + range.fadeIn, fadeOut: until - range.fadeOut };
}

/** The look with a corner on another frame; corners stay in their order. */
export function cornerMoved(look: Look, name: HandleName, frame: number, first: number, last: number): Look {
    const { from, until, fadeIn, fadeOut } = cornersOf(look, first, last);
    const within = (low: number, high: number) => Math.round(Math.min(Math.max(frame, low), Math.max(low, high)));
    switch (name) {
        case 'from': {
            const to = within(first, until - look.range.fadeOut - look.range.fadeIn);
            return withRange(look, { from: to === first ? null : to });
        }
        case 'until': {
            const to = within(from + look.range.fadeIn + look.range.fadeOut, last);
            return withRange(look, { until: to === last ? null : to });
        }
        case 'fadeIn': return withRange(look, { fadeIn: within(from, fadeOut) - from });
        case 'fadeOut': return withRange(look, { fadeOut: until - within(fadeIn, until) });
    }
}

const NAMES: readonly HandleName[] = ['from', 'fadeIn', 'fadeOut', 'until'];

export function RangeLane() {
    const first = studio.firstFrame.value, last = studio.lastFrame.value, look = studio.look.value;
    const corners = cornersOf(look, first, last);
    const to = (name: HandleName, frame: number, gesture: string | null) =>
        studio.edit((now) => cornerMoved(now, name, frame, first, last), gesture);
    const drag = (event: JSX.TargetedPointerEvent<HTMLDivElement>) => {
        const name = (event.target as HTMLElement).dataset.corner as HandleName | undefined;
        if (name === undefined || event.button !== 0) return;
        const lane = event.currentTarget, gesture = `range ${Math.random()}`;
        lane.setPointerCapture(event.pointerId);
        const move = (now: PointerEvent) => to(name, frameAt(now, lane), gesture);
        lane.addEventListener('pointermove', move);
        lane.addEventListener('lostpointercapture', () => {
            lane.removeEventListener('pointermove', move);
            studio.settle();
        }, { once: true });
    };
    const shape = [[corners.from, 100], [corners.fadeIn, 0], [corners.fadeOut, 0], [corners.until, 100]]
        .map(([frame, y]) => `${placeOf(frame as number)},${y}`).join(' ');
    return (
        <div class="lane">
            <span class="lane-name">{words.timeline.mix}</span>
            <div class="line range" onPointerDown={drag}>
                <svg viewBox="0 0 100 100" preserveAspectRatio="none" aria-hidden="true"><polygon points={shape} /></svg>
                {NAMES.map((name) => (
                    <button key={name} type="button" class={`corner ${name}`} data-corner={name} role="slider" aria-label={words.timeline[name]}
                        title={words.timeline[name]} aria-valuemin={first} aria-valuemax={last} aria-valuenow={corners[name]}
                        style={{ left: `${placeOf(corners[name])}%` }}
                        onKeyDown={(event) => {
                            const step = arrowStep(event);
                            if (step === 0) return;
                            event.preventDefault();
                            event.stopPropagation();
                            to(name, corners[name] + step, null);
                        }} />))}
            </div>
        </div>
    );
}
