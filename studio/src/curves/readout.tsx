/** What was added, in numbers that people think in. */
import { studio } from '../app.ts';
import { addedCurve, peak, POSITION, rms, ROTATION } from '../model/channels.ts';
import type { Channel } from '../model/channels.ts';
import { BANDS, bandRms, spectrumOf, strongest } from '../model/spectrum.ts';
import type { Shown } from '../model/studio.ts';
import { perSecond } from '../model/timecode.ts';
import { words } from '../words.ts';

const WIDTH = 1920;
/** RMS from 0.1 to 0.5 Hz above which pictures make people sick soonest: of the picture's width, and of the bank in radians. */
const MOST_SWAY = 0.02, MOST_BANK = (1.5 * Math.PI) / 180;

const digits = (number: number) => number.toFixed(Math.abs(number) < 10 ? 2 : 1);

/** Pixels that a turn by so many degrees moves the picture's middle. */
export const pixelsOf = (degrees: number, focalLength: number, filmBack: number): number =>
    (Math.tan((degrees * Math.PI) / 180) * focalLength * WIDTH) / filmBack;

function Row({ shown, channel, framesPerSecond }: { shown: Shown; channel: Channel; framesPerSecond: number }) {
    const { move, numbers } = shown;
    const added = addedCurve(move.numbers, numbers, channel), spectrum = spectrumOf(added, framesPerSecond);
    const hertz = strongest(spectrum), isTurn = channel.turns && channel.name !== 'B', unit = channel.turns ? '°' : 'cm';
    const most = peak(added);
    return (
        <tr>
            <th scope="row">{channel.name}</th>
            <td>{digits(rms(added))} {unit}</td>
            <td>{digits(most)} {unit}</td>
            <td>{isTurn ? `${Math.round(pixelsOf(most, numbers[6] ?? 36, move.info.apertureWidth))} px` : ''}</td>
            <td>{hertz === undefined ? '' : `${digits(hertz)} Hz`}</td>
            {BANDS.map(([low, high]) => <td key={low}>{digits(bandRms(spectrum, low, high))}</td>)}
        </tr>
    );
}

export function Readout() {
    const shown = studio.shown.value, measures = studio.details.value?.measures;
    if (shown === null) return null;
    const framesPerSecond = perSecond(studio.rate.value);
    const makesSick = measures !== undefined && (measures.swayRms > MOST_SWAY || measures.bankRms > MOST_BANK);
    return (
        <div class="readout">
            {makesSick && <p class="warning" role="status">{words.curves.makesSick}</p>}
            <table>
                <thead><tr>
                    <th scope="col"><span class="hidden-text">{words.curves.show}</span></th><th scope="col">{words.curves.rms}</th>
                    <th scope="col">{words.curves.peak}</th><th scope="col" title={words.curves.width}>{words.curves.picture}</th>
                    <th scope="col">{words.curves.strongest}</th>{words.curves.bands.map((band) => <th key={band} scope="col">{band}</th>)}
                </tr></thead>
                <tbody>{[...POSITION, ...ROTATION].map((channel) =>
                    <Row key={channel.name} shown={shown} channel={channel} framesPerSecond={framesPerSecond} />)}</tbody>
            </table>
            {measures !== undefined && <p class="note">
                {words.curves.strayed} {digits(measures.positionRms)} cm {words.curves.rms}, {digits(measures.positionPeak)} {words.curves.peak};{' '}
                {words.curves.turned} {digits((measures.turnRms * 180) / Math.PI)}° {words.curves.rms}, {digits((measures.turnPeak * 180) / Math.PI)}° {words.curves.peak};{' '}
                {words.curves.sway} {digits(measures.swayRms * 100)} %; {words.curves.bank} {digits((measures.bankRms * 180) / Math.PI)}°</p>}
        </div>
    );
}
